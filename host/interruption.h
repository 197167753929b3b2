#pragma once

namespace host {

/// From here on the first SIGINT or SIGTERM does not end the process but is remembered, so that the script
/// can end tidily; a second one ends it as usual. A closed pipe counts as a failed write.
void catchInterruptions();

/// Whether one has come.
bool interrupted();

}  // namespace host
