#pragma once

namespace host {

/// Seconds on a clock of the machine that runs evenly and never back, from some point in the past. Whoever
/// needs it is told; only the server reads the clock.
using WallTime = double;

}  // namespace host
