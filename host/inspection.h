#pragma once

#include "host/json_text.h"

namespace host {

/// The views that are not hidden and contain `point` (screen points), as they are on screen now, back to
/// front: class, frame in the superview's coordinates, alpha, depth in the tree (a window's is 0), and
/// corners on the screen, clockwise from the view's own upper left.
Json inspect(CGPoint point);

}  // namespace host
