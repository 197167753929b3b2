#pragma once

#include "platform/coregraphics/cairo_support.h"
#include "platform/quartzcore/ca_layer.h"

/// Draws what a layer shows inside its own bounds: background, contents, what its delegate drew, gradient.
/// The context's matrix leads from the layer's coordinates to the device, `scale` pixels are a point there,
/// and `opacity` includes the layer's own. Internal to the renderer.
void drawLayerContent(cairo_t* cairo, const CALayer& layer, const CALayerGeometry& geometry, CGFloat opacity,
                      CGFloat scale);
