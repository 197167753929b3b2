#pragma once

#include "platform/coregraphics/cg_image.h"
#include "platform/quartzcore/device_box.h"
#include "platform/quartzcore/pixel_rows.h"

/// Pictures are averaged that are shown at less than this part of their size in pixels; others are linear.
inline constexpr double averagedBelow = 0.75;

/// Writes `picture`, in screen layout, stretched upright over `place`, as premultiplied pixels of a result
/// `width` by `height` large: averaged where it shrinks, linear elsewhere, as the drawing library does it and
/// several times as fast. `place` is in the result's pixels and not empty; those at its edges are covered in
/// part, those outside transparent. Internal to the renderer.
void scalePicture(const CGImage& picture, const DeviceBox& place, Pixel* result, int width, int height);
