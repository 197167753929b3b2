#include "host/web/client_clock.h"

namespace host {
namespace {

// Seconds. What seems older comes from a clock that has jumped, as it does when a machine slept.
constexpr double longestDelay = 0.25;

}  // namespace

WallTime ClientClock::timeOf(double stamp, WallTime now) {
  const double offset = now - stamp;
  if (!offset_ || offset < *offset_ || offset > *offset_ + longestDelay) offset_ = offset;
  return stamp + *offset_;
}

}  // namespace host
