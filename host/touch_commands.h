#pragma once

#include "host/script_command.h"
#include "platform/foundation/run_loop.h"

namespace host {

// Whoever has fingers has `mostFingers` of the dispatcher's numbers, from `firstFinger` on.

/// Puts the finger on the glass, moves it or takes it away. A finger lands on the screen or nowhere:
/// elsewhere throws Failure; what no finger can do, IncoherentTouch.
void performTouch(const TouchCommand& command, int firstFinger, CFTimeInterval timestamp);
/// Takes those that are still down away, as the system does when it stops listening.
void cancelTouches(int firstFinger, CFTimeInterval timestamp);

}  // namespace host
