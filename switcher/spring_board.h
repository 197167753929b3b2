#pragma once

#include <string>

#include "platform/foundation/ns_array.h"
#include "platform/springboard/sb_application.h"

namespace vistrel {

/// What the switcher asks of SpringBoard and the system. Their classes are looked up by name once, on first
/// use; one that is missing answers nothing.

/// The application of a bundle identifier, or null.
SBApplication* applicationWithIdentifier(const std::string& identifier);

/// Brings an application to the front. Nothing is awaited.
void openApplication(const std::string& identifier);

bool deviceIsLocked();

/// While the on-screen keyboard is up, the switcher neither opens nor reacts.
bool keyboardIsOnScreen();

/// SpringBoard's recently used applications, most recent first; empty where it keeps no such list.
NSStringArray recentDisplayIdentifiers();

}  // namespace vistrel
