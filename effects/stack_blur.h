#pragma once

#include <cstdint>
#include <memory>

#include "platform/uikit/ui_image.h"

namespace vistrel {

// Stack blur: a horizontal and a vertical pass of triangular weights, close to a Gaussian, in integers only.

/// A blurred copy of `image` with scale 1 and orientation up: a picture of scale 2 comes back with its pixels
/// as its points. The fourth byte of each pixel, alpha in most layouts, stays as it is. `image` itself when
/// `radius` (in pixels) is 0, when its size is zero, or when no bitmap context can be made for it.
std::shared_ptr<UIImage> stackBlur(const std::shared_ptr<UIImage>& image, std::uint32_t radius);

/// `image` redrawn at its size in whole points, truncated, as R, G, B and premultiplied A; scale 1. Null when
/// that size is empty.
std::shared_ptr<UIImage> normalize(const UIImage& image);

/// Blurs bytes 0, 1 and 2 of each pixel in place; byte 3 stays as it is. Pixels have 4 bytes,
/// rows exactly 4 x `width`. Edge pixels count as repeated beyond the edges. Nothing changes where
/// a width or height is below 1, the radius 0 or the buffer null.
void applyStackBlurToBuffer(std::uint8_t* buffer, std::int32_t width, std::int32_t height,
                            std::uint32_t radius);

/// Enters the three above into UIImage's method tables, for whoever shares the process: "stackBlur:" and
/// "normalize", and the class method "applyStackBlurToBuffer:width:height:withRadius:".
void registerStackBlur();

}  // namespace vistrel
