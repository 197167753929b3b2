#pragma once

#include "host/web/wall_time.h"

namespace host {

/// So many a second, and as many as `burst` at once.
class RateLimit {
 public:
  RateLimit(double perSecond, double burst, WallTime now)
      : perSecond_(perSecond), burst_(burst), left_(burst), counted_(now) {}

  /// Takes one; false where none is left.
  bool take(WallTime now);

 private:
  double perSecond_, burst_;
  double left_;  // At the time `counted_`.
  WallTime counted_;
};

}  // namespace host
