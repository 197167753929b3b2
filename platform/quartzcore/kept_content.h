#pragma once

#include "platform/quartzcore/pixel_box.h"
#include "platform/quartzcore/placed_layer.h"

/// A layer's content as a premultiplied picture over `box`, in device pixels, with `opacity` in place of the
/// layer's own. It is kept with the layer and drawn anew only when its looks, its size or the way it lies on
/// the pixels have changed: not when it has moved by whole ones. Null where there is no memory for it.
CGImageRef keptContent(const PlacedLayer& placed, const PixelBox& box, CGFloat opacity);
