#pragma once

#include "platform/coregraphics/cairo_support.h"
#include "platform/quartzcore/placed_layer.h"

/// What a layer shows inside its own bounds: background, contents, what its delegate drew, gradient. Internal
/// to the renderer.

struct ContentTraits {
  int pieces = 0;             ///< Of those, as many as there are.
  bool pixelByPixel = false;  ///< All of them are colours and pictures in screen layout, on whole pixels.
  bool opaque = false;        ///< They let nothing through, but for the layer's opacity.
};
/// Of a layer whose bounds can be drawn. Has the delegate draw what is out of date.
ContentTraits contentTraits(const PlacedLayer& placed);

/// Draws the content with `opacity` instead of the layer's own. The context's matrix leads from the layer's
/// coordinates to the device.
void drawLayerContent(cairo_t* cairo, const PlacedLayer& placed, CGFloat opacity);
