#pragma once

#include "platform/runtime/ns_object.h"
#include "platform/uikit/ui_orientation.h"

/// Posted by the device whenever its orientation has changed; the number is the new orientation.
inline constexpr const char* UIDeviceOrientationDidChangeNotification =
    "UIDeviceOrientationDidChangeNotification";

/// The device in the user's hand.
class UIDevice : public NSObject {
  OBJC_CLASS(UIDevice, NSObject)
 public:
  static UIDevice& currentDevice();
  UIDeviceOrientation orientation() const { return orientation_; }
  /// For the host: the device has been turned. Posts the notification when that is a change.
  void setOrientation(UIDeviceOrientation orientation);

 private:
  UIDeviceOrientation orientation_ = UIDeviceOrientation::Portrait;
};
