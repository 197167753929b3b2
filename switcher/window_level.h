#pragma once

#include "platform/coregraphics/cg_geometry.h"

namespace vistrel {

inline constexpr CGFloat restingLevel = 9001;  ///< Above everything.
inline constexpr CGFloat openLevel =
    9000;  ///< Right after a show or a reload, until SpringBoard's next event.

/// Puts the switcher's window back on top, if there is one: SpringBoard may have raised something else.
void reassertWindowLevel();

}  // namespace vistrel
