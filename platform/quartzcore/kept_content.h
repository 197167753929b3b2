#pragma once

#include "platform/quartzcore/paint.h"

// Internal to the renderer.

/// A layer's content as a premultiplied picture over `box`, in device pixels, with `opacity` in place of the
/// layer's own. It is kept with the layer and drawn anew only when its looks, its size or the way it lies on
/// the pixels have changed: not when it has moved by whole ones. Null where there is no memory for it.
CGImageRef keptContent(const PlacedLayer& placed, const PixelBox& box, CGFloat opacity);
/// The same for the shadow of a layer whose mask cuts it, at full opacity.
CGImageRef keptMaskedShadow(const PlacedLayer& placed, const PixelBox& box);

/// A layer with all that lies in it, as a premultiplied picture over `box`, in device pixels; kept with the
/// layer until anything of it changes.
CGImageRef keptSubtree(const SubtreePaint& what, const PixelBox& box, const FrameMoment& moment);
