#pragma once

#include <vector>

namespace host {

/// SIGINT, SIGTERM and, unless the process was started to outlive its terminal, SIGHUP.
std::vector<int> interruptingSignals();

/// From here on the first of these does not end the process but is remembered, so that the script
/// can end tidily; a second one ends it as usual. A closed pipe counts as a failed write.
void catchInterruptions();

/// Whether one has come.
bool interrupted();
/// Throws Failure when one has come.
void stopIfInterrupted();

}  // namespace host
