#pragma once

#include <cstdint>

#include "platform/coregraphics/cg_image.h"
#include "platform/foundation/run_loop.h"

namespace monkey {

/// Holds the screen's pictures against each other: where nothing was said to have changed, the picture stays;
/// and what layers keep of their content is what they would draw now.
class ScreenWatch {
 public:
  /// Throws InvariantViolation.
  void look();

  int looks() const { return looks_; }
  /// Of them, those at a screen that was said to be unchanged.
  int looksAtUnchanged() const { return looksAtUnchanged_; }

 private:
  CGImageRef picture_;  // As last seen; null before the first look.
  std::uint64_t changes_ = 0;
  CFTimeInterval time_ = 0;
  int looks_ = 0;
  int looksAtUnchanged_ = 0;
};

}  // namespace monkey
