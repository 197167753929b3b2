#include "host/web/pace.h"

namespace host {
namespace {

// Seconds. Rather a little late than woken for nothing, should rounding fall short.
constexpr double margin = 1e-6;

}  // namespace

void Pace::setFactor(double factor, WallTime now) {
  device_ = deviceTime(now);
  wall_ = now;
  factor_ = factor;
}

std::optional<WallTime> Pace::wallTime(CFTimeInterval device) const {
  if (stands()) return std::nullopt;
  return wall_ + (device - device_) / factor_ + margin;
}

}  // namespace host
