#include "host/web/rate_limit.h"

#include <algorithm>

namespace host {

bool RateLimit::take(WallTime now) {
  left_ = std::min(burst_, left_ + (now - counted_) * perSecond_);
  counted_ = now;
  if (left_ < 1) return false;
  left_ -= 1;
  return true;
}

}  // namespace host
