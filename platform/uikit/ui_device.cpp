#include "platform/uikit/ui_device.h"

#include "platform/foundation/ns_notification_center.h"

UIDevice& UIDevice::currentDevice() {
  static auto device = std::make_shared<UIDevice>();
  return *device;
}

void UIDevice::setOrientation(UIDeviceOrientation orientation) {
  if (orientation == orientation_) return;
  orientation_ = orientation;
  NSNotificationCenter::defaultCenter().post(UIDeviceOrientationDidChangeNotification, int(orientation));
}
