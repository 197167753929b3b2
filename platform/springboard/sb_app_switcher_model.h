#pragma once

#include <string>

#include "platform/foundation/ns_array.h"
#include "platform/runtime/message.h"

/// SpringBoard's list of recently used applications. Class method "sharedInstance", `SBAppSwitcherModel*()`;
/// the host's class keeps the list, most recent first, in the instance variable "_recentDisplayIdentifiers",
/// an NSStringArray.
class SBAppSwitcherModel : public NSObject {
  OBJC_CLASS(SBAppSwitcherModel, NSObject)
 public:
  void remove(const std::string& identifier) { send<void>(*this, "remove:", identifier); }
};
