#pragma once

#include "platform/coregraphics/cairo_support.h"
#include "platform/quartzcore/device_box.h"

/// The blurred shadow of a rectangle. Internal to the renderer.
struct RectangleShadow {
  CGRect rect;   ///< What throws it, already offset, in the coordinates that `toDevice` begins at.
  double sigma;  ///< Standard deviation of the blur, in the same units.
  CGColor color;
};

/// The pixels that the shadow can touch.
DeviceBox shadowBox(const RectangleShadow& shadow, const cairo_matrix_t& toDevice);

/// Draws the part of the shadow inside `visible`. Leaves the context's matrix as it was.
void drawShadow(cairo_t* cairo, const RectangleShadow& shadow, const cairo_matrix_t& toDevice,
                DeviceBox visible);
