#pragma once

#include "platform/coregraphics/cg_geometry.h"

namespace vistrel {

/// Where the switcher's parts lie, in points. The "split" is the height, from the top of the screen, at which
/// a showing parts the screen.

// The bands: a gap opens around the split, or a middle band of the same height moves away from there.
inline constexpr float gapHalf = 40;
inline constexpr float middleBandHeight = 2 * gapHalf;
inline constexpr float middleBandTravel =
    120;  ///< From the split to where "Up" and "Down" take the middle band.
inline constexpr float halfBandTravel = 80;   ///< The same for the two halves of "Split".
inline constexpr float splitBelowFinger = 5;  ///< The screen splits this far below the finger that opens it.

// The strips.
inline constexpr float iconStripHeight = 60;
inline constexpr float halfIconStripHeight = 30;
inline constexpr float nameStripHeight = 30;
inline constexpr float dimmedIconAlpha = 0.6f;  ///< Of icons that nothing points at yet, or any more.

/// A release within this of the height where the touch began picks; farther off it is a swipe.
inline constexpr float pickBand = 40;

/// The width of a slot when `count` applications share the working width.
float slotWidth(unsigned count);
/// An application's centre in both strips: slots of equal width, each centred this far into itself.
inline constexpr float slotCenterOffset = 30;
float slotCenterX(unsigned index, unsigned count);
/// The slot whose centre lies nearest to `x`, halves away from zero; may lie outside of 0 to `count` - 1.
long nearestSlot(float x, unsigned count);

/// The x origin of the parked window: only its grab strip stays on screen.
float restingX();
/// The parked window, and its icon strip in the window's coordinates: half-way down, off the screen.
CGRect restingWindowFrame();
CGRect restingIconStripFrame();

/// Pixels a point: the main screen's scale, its integer part; 1 for a screen that has none.
float deviceScale();

}  // namespace vistrel
