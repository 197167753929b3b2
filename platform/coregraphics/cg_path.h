#pragma once

#include "platform/coregraphics/cg_geometry.h"

/// The one shape of path that shadows need: a rectangle, in the coordinates of whatever it is given to.
struct CGPath {
  CGRect rect;
  bool operator==(const CGPath&) const = default;
};
