#pragma once

#include <vector>

#include "platform/quartzcore/paint.h"

/// What layers are painted with, back to front. Internal to the renderer.

/// A picture of more pixels than this is made of what the screen shows of it, or not kept at all.
inline constexpr std::int64_t largestKeptPicture = 1 << 20;

enum class Sublayers {
  Apart,     ///< Each by itself, in front of what has been collected.
  Included,  ///< What has been collected shows them.
};

/// Appends what of a visible layer is painted inside of `clip`: the layer alone or, where its mask or its
/// blur goes for all that lies in it, the whole subtree. Cuts `clip` to what its sublayers may touch.
Sublayers collectPaints(const PlacedLayer& placed, const Inherited& inherited, const FrameMoment& moment,
                        PixelBox& clip, std::vector<Paint>& paints);

/// The same without the layer's own shadow, mask and blur, and with all that lies in it. False where its
/// content is too large.
bool collectContentAndSublayers(const PlacedLayer& placed, const FrameMoment& moment, const PixelBox& clip,
                                std::vector<Paint>& paints);
