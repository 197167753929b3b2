#pragma once

#include <cstdint>

/// Whether there may be more to see on the screen than when it was last drawn, known without drawing it.
/// While the count stays and no animation runs, the screen looks the same.

/// Something that a frame could show has changed.
void noteScreenChange();
/// Grows with every change noted.
std::uint64_t screenChangeCount();

/// Animations of layers have begun, or ended (a negative number).
void noteAnimations(int change);
bool anyAnimationRuns();
