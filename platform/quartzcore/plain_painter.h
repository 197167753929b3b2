#pragma once

#include <vector>

#include "platform/quartzcore/ca_layer.h"

/// Painting of layer trees as plainly as can be: every layer, back to front, by way of the drawing library.
/// Nothing is kept from one call to the next. What Compositor shows has to be what this shows, as nearly
/// as it says.
///
/// Draws the trees as they look at `time` onto a black screen of `size` points at `scale` pixels a point.
/// Opacity is multiplied down the tree, without groups, as the system of this era does. The result is opaque,
/// in screen layout, its size in whole pixels; null where there is no picture of that size.
CGImageRef paintPlainly(const std::vector<const CALayer*>& backToFront, CGSize size, CGFloat scale,
                        CFTimeInterval time);

/// Points to pixels, upward; 0 where there can be no picture of that size.
int wholePixels(CGFloat points, CGFloat scale);
