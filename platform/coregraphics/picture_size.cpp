#include "platform/coregraphics/picture_size.h"

#include <algorithm>

#include "platform/coregraphics/cairo_support.h"

namespace {

/// A few bytes of file can announce any size; this is as much memory as a picture may ask for.
constexpr std::uint64_t maxPixels = 16ull << 20;

}  // namespace

bool isAcceptablePictureSize(std::uint32_t width, std::uint32_t height, std::uint32_t largestSide) {
  const std::uint32_t side = std::min<std::uint32_t>(largestSide, maxSurfaceSide);
  return width > 0 && height > 0 && width <= side && height <= side &&
         std::uint64_t{width} * height <= maxPixels;
}
