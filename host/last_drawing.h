#pragma once

#include <cstdint>

#include "platform/foundation/run_loop.h"

namespace host {

/// When the screen was last drawn, and whether there may be more to see by now; known without drawing it.
class LastDrawing {
 public:
  /// The screen is being drawn as it is now.
  void note();

  /// True before the first drawing; then when something has changed or an animation has gone on since.
  bool isOutdated() const;
  /// The device's time of it.
  CFTimeInterval time() const { return time_; }

 private:
  bool exists_ = false;
  std::uint64_t changes_ = 0;  // Of layers, until then.
  CFTimeInterval time_ = 0;
};

}  // namespace host
