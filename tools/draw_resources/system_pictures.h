#pragma once

#include "tools/draw_resources/canvas.h"

namespace draw_resources {

/// One tile of the grab strip's pattern, grabTilePoints square.
void drawGrabTile(Canvas& canvas);

/// The strip is any number of points wide and shows the pattern's first columns at the right edge of the
/// screen, its last at the left edge. A tile that divides all screen sides (320, 480, 568, 768, 1024) and is
/// its own mirror image makes the two edges mirror images of each other.
inline constexpr double grabTilePoints = 8;

void drawHomeWallpaper(Canvas& canvas);
void drawLockWallpaper(Canvas& canvas);

}  // namespace draw_resources
