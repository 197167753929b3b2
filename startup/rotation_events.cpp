#include "startup/rotation_events.h"

#include "platform/foundation/ns_notification_center.h"
#include "platform/uikit/ui_application.h"
#include "platform/uikit/ui_device.h"
#include "strips/card_dragger.h"
#include "strips/name_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/layout.h"
#include "switcher/shared_state.h"

namespace vistrel {
namespace {

/// A window that was parked on its side does not come to lie at the edge by turning back alone.
void parkUprightWindow() {
  const bool upright =
      UIInterfaceOrientationIsPortrait(UIApplication::sharedApplication().statusBarOrientation());
  if (upright && !switcherOpen) switcherWindow->setFrame(restingWindowFrame());
}

}  // namespace

void observeRotations() {
  NSNotificationCenter& center = NSNotificationCenter::defaultCenter();
  center.addObserver(UIDeviceOrientationDidChangeNotification, [](int) { switcherWindow->didRotate(); });
  center.addObserver(UIApplicationDidChangeStatusBarOrientationNotification, [](int before) {
    const auto from = static_cast<UIInterfaceOrientation>(before);
    switcherWindow->didRotateFromInterfaceOrientation(from);
    if (iconStrip) iconStrip->didRotateFromInterfaceOrientation(from);
    if (nameStrip) nameStrip->didRotateFromInterfaceOrientation(from);
    parkUprightWindow();
  });
}

}  // namespace vistrel
