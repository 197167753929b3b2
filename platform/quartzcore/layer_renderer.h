#pragma once

#include <memory>
#include <vector>

#include "platform/quartzcore/ca_layer.h"

/// Draws the layer trees, back to front, as they look at `time` onto a black screen of `size` points at
/// `scale` pixels a point: background, content, sublayers, shadows, masks, filters. Opacity is multiplied
/// down the tree, without groups, as the system of this era does. The result is opaque, in screen layout, its
/// size in whole pixels.
CGImageRef renderLayers(const std::vector<const CALayer*>& backToFront, CGSize size, CGFloat scale,
                        CFTimeInterval time);
