#pragma once

#include "platform/quartzcore/placed_layer.h"

/// Draws a layer, its shadow and all that lies in it onto `target`, plainly: for what rows of pixels cannot
/// do. What is outside of `clip` may be left out. Internal to the renderer.
void paintSubtreePlainly(cairo_surface_t* target, const CALayer& layer, const Inherited& inherited,
                         const DeviceBox& clip, const FrameMoment& moment);
