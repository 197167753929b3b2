#pragma once

#include "platform/coregraphics/cg_geometry.h"

/// A colour in device RGB, not premultiplied; components 0 to 1.
struct CGColor {
  CGFloat red = 0, green = 0, blue = 0, alpha = 0;
  bool operator==(const CGColor&) const = default;
};
