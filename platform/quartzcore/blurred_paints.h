#pragma once

#include <vector>

#include "platform/quartzcore/paint.h"

/// Appends what shows, inside of `clip`, of a layer with a blur filter and of what lies in it. The blurred
/// picture is kept with the layer while what went into it stays the same. False, and nothing appended, where
/// it would be too large, or does not lie on whole pixels. Internal to the renderer.
bool collectBlurred(const PlacedLayer& placed, const FrameMoment& moment, const PixelBox& clip,
                    std::vector<Paint>& paints);
