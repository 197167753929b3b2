#include "platform/uikit/ui_application.h"

#include <utility>

#include "platform/foundation/ns_notification_center.h"
#include "platform/uikit/ui_kit.h"

UIApplication& UIApplication::sharedApplication() {
  registerUIKitClasses();
  static auto application = std::make_shared<UIApplication>();
  return *application;
}

void UIApplication::setStatusBarOrientation(UIInterfaceOrientation orientation) {
  if (orientation == statusBarOrientation_) return;
  const auto before = std::exchange(statusBarOrientation_, orientation);
  NSNotificationCenter::defaultCenter().post(UIApplicationDidChangeStatusBarOrientationNotification,
                                             int(before));
}
