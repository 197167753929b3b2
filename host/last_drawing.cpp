#include "host/last_drawing.h"

#include "platform/quartzcore/screen_changes.h"

namespace host {

void LastDrawing::note() {
  exists_ = true;
  changes_ = screenChangeCount();
  time_ = RunLoop::main().now();
}

bool LastDrawing::isOutdated() const {
  if (!exists_ || screenChangeCount() != changes_) return true;
  return anyAnimationRuns() && RunLoop::main().now() > time_;
}

}  // namespace host
