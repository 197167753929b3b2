#pragma once

#include "platform/runtime/message.h"
#include "platform/uikit/ui_orientation.h"
#include "platform/uikit/ui_responder.h"

class SBApplication;

/// Posted when the status bar's interface orientation has changed; the number is the orientation before.
inline constexpr const char* UIApplicationDidChangeStatusBarOrientationNotification =
    "UIApplicationDidChangeStatusBarOrientationNotification";

/// The process as UIKit sees it. Methods with behaviour of the host go through the class's method table.
class UIApplication : public UIResponder {
  OBJC_CLASS(UIApplication, UIResponder)
 public:
  static UIApplication& sharedApplication();

  UIInterfaceOrientation statusBarOrientation() const { return statusBarOrientation_; }
  /// For the host: the interface in front has been turned. Posts the notification when that is a change.
  void setStatusBarOrientation(UIInterfaceOrientation orientation);

  /// Sends the front application away. The argument is always null here.
  void quitTopApplication(NSObject* sender) { send<void>(*this, "quitTopApplication:", sender); }
  /// An application has come up and drawn its first screen.
  void reportAppLaunchFinished() { send<void>(*this, "_reportAppLaunchFinished"); }

 private:
  UIInterfaceOrientation statusBarOrientation_ = UIInterfaceOrientation::Portrait;
};
