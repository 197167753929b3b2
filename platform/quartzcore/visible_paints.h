#pragma once

#include <vector>

#include "platform/quartzcore/paint.h"
#include "platform/quartzcore/pixel_region.h"

/// Pixels to paint on, row after row. Borrowed.
struct PixelSurface {
  std::uint8_t* bytes;
  int width, height;

  Pixel* at(int x, int y) const {
    return reinterpret_cast<Pixel*>(bytes) + static_cast<std::ptrdiff_t>(y) * width + x;
  }
};

/// Paints what of `backToFront` shows inside of `region`: nothing is painted that something in front of it
/// covers. What was there before shines through where nothing covers it. Internal to the renderer.
void paintVisible(const PixelSurface& surface, const std::vector<Paint>& backToFront,
                  const PixelRegion& region, const FrameMoment& moment);
void paintVisible(const PixelSurface& surface, const std::vector<const Paint*>& backToFront,
                  const PixelRegion& region, const FrameMoment& moment);
