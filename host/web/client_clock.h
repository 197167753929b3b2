#pragma once

#include <optional>

#include "host/web/wall_time.h"

namespace host {

/// The clock that a client stamps its events with, set against ours: the message that came fastest so far
/// tells how far the two are apart. So a delay on the way does not distort a gesture.
class ClientClock {
 public:
  /// When, by our clock, an event happened that was stamped `stamp` (seconds) and came in `now`: no later
  /// than now, and no longer ago than any delay can be.
  WallTime timeOf(double stamp, WallTime now);

 private:
  std::optional<double> offset_;  // Ours minus the client's.
};

}  // namespace host
