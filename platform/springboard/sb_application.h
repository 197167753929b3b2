#pragma once

#include <string>

#include "platform/runtime/message.h"

/// An installed application. What happens in each method is the host's, through the method table.
class SBApplication : public NSObject {
  OBJC_CLASS(SBApplication, NSObject)
 public:
  /// Its bundle identifier.
  std::string displayIdentifier() { return send<std::string>(*this, "displayIdentifier"); }
  std::string displayName() { return send<std::string>(*this, "displayName"); }

  /// Steps of an application coming to the front, in the order in which SpringBoard takes them.
  void activate() { send<void>(*this, "activate"); }
  std::string activationStateToString() { return send<std::string>(*this, "_activationStateToString"); }
  void setHasBeenLaunched() { send<void>(*this, "_setHasBeenLaunched"); }
  void didLaunch(NSObject* process) { send<void>(*this, "didLaunch:", process); }
  void didAnimateActivation() { send<void>(*this, "didAnimateActivation"); }
  void didActivate() { send<void>(*this, "didActivate"); }
};
