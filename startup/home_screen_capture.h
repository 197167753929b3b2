#pragma once

#include "platform/coregraphics/cg_image.h"

namespace vistrel {

/// A picture of the home screen, taken when an icon is launched and kept in a cache file for the peek to
/// show. Without swipe actions there is no peek, and nothing is captured.
class HomeScreenCapture {
 public:
  /// Photographs the screen: make one while the home screen is still showing. Clears the picture loaded
  /// before.
  HomeScreenCapture();

  /// Writes the cache file; a failed write is ignored.
  void save() const;

 private:
  CGImageRef picture_;  // Null without swipe actions.
};

}  // namespace vistrel
