#pragma once

#include <optional>

#include "host/web/wall_time.h"
#include "platform/foundation/run_loop.h"

namespace host {

/// How the device's time follows the real one: evenly, at 0 to 1 times its speed.
class Pace {
 public:
  /// Starts at the real speed.
  Pace(WallTime wall, CFTimeInterval device) : wall_(wall), device_(device) {}

  double factor() const { return factor_; }
  bool stands() const { return factor_ == 0; }
  void setFactor(double factor, WallTime now);
  /// Moves the device's time on without any real one passing.
  void skip(CFTimeInterval seconds) { device_ += seconds; }

  CFTimeInterval deviceTime(WallTime wall) const { return device_ + (wall - wall_) * factor_; }
  /// When it will be `device` on the device; nothing while its time stands.
  std::optional<WallTime> wallTime(CFTimeInterval device) const;

 private:
  // One moment in both times; from there on it goes on by the factor.
  WallTime wall_;
  CFTimeInterval device_;
  double factor_ = 1;
};

}  // namespace host
