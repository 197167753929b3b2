#pragma once

#include "platform/runtime/message.h"
#include "platform/springboard/sb_application.h"

/// The heart of SpringBoard's interface. Class method "sharedInstance", `SBUIController*()`.
class SBUIController : public NSObject {
  OBJC_CLASS(SBUIController, NSObject)
 public:
  void finishLaunching() { send<void>(*this, "finishLaunching"); }
  /// Brings an application to the front, from wherever the device is; null is ignored.
  void activateApplicationFromSwitcher(SBApplication* application) {
    send<void>(*this, "activateApplicationFromSwitcher:", application);
  }
  void removeAppFromSwitchAppList(SBApplication* application) {
    send<void>(*this, "removeAppFromSwitchAppList:", application);
  }
};
