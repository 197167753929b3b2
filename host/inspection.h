#pragma once

#include "host/json_text.h"

namespace host {

/// The views that contain `point` (screen points), as they are on screen now, back to front, but for what is
/// hidden or masked off: class, frame in the superview's coordinates, the view's own alpha, depth in the tree
/// (a window's is 0), and corners on the screen, clockwise from the view's own upper left.
Json inspect(CGPoint point);

}  // namespace host
