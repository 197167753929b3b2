#pragma once

#include "host/script_command.h"
#include "platform/foundation/run_loop.h"

namespace host {

/// Puts one finger on the glass, moves it or takes it away. `finger` is the dispatcher's number for it. A
/// finger lands on the screen or nowhere: elsewhere throws Failure; what no finger can do, IncoherentTouch.
void performTouch(const TouchCommand& command, int finger, CFTimeInterval timestamp);

}  // namespace host
