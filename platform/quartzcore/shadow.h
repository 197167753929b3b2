#pragma once

#include <cstdint>
#include <vector>

#include "platform/coregraphics/cairo_support.h"
#include "platform/quartzcore/device_box.h"
#include "platform/quartzcore/pixel_box.h"

/// The blurred shadow of a rectangle. Internal to the renderer.
struct RectangleShadow {
  CGRect rect;   ///< What throws it, already offset, in the coordinates that `toDevice` begins at.
  double sigma;  ///< Standard deviation of the blur, in the same units.
  CGColor color;
};

/// How much a shadow covers of each pixel of `box`: the product of a profile along and one across, for the
/// blur is separable and so is a rectangle. See shadowCoverage().
struct ShadowMask {
  /// Of the blurred rectangle `rect` over `box`, both in the mask's own pixels.
  ShadowMask(const DeviceBox& rect, AxisScale sigma, const PixelBox& box);

  PixelBox box;
  std::vector<std::uint16_t> along, across;
  /// Columns of the box that are all alike, between the two ends: [first, last).
  int firstAlike = 0, lastAlike = 0;
};

/// A mask's value from its two profiles, 0 to 255.
constexpr std::uint8_t shadowCoverage(std::uint32_t along, std::uint32_t across) {
  return static_cast<std::uint8_t>((((along * across) >> 16) + 128) >> 8);
}

/// True when upright rectangles stay upright: no rotation, or one by quarter turns, as good as floats get it.
bool keepsUpright(const cairo_matrix_t& toDevice);

/// The pixels that the shadow can touch.
DeviceBox shadowBox(const RectangleShadow& shadow, const cairo_matrix_t& toDevice);

/// Draws the part of the shadow inside `visible`. Leaves the context's matrix as it was.
void drawShadow(cairo_t* cairo, const RectangleShadow& shadow, const cairo_matrix_t& toDevice,
                DeviceBox visible);
