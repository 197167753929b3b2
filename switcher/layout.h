#pragma once

#include "platform/coregraphics/cg_geometry.h"

namespace vistrel {

/// Where the switcher's parts lie, in points, and at which window levels.

inline constexpr CGFloat restingLevel = 9001.0f;  ///< Above everything, put back after every SpringBoard event.
inline constexpr CGFloat openLevel = 9000.0f;     ///< Right after a show or a reload.

inline constexpr float iconStripHeight = 60;
inline constexpr float halfIconStripHeight = 30;
inline constexpr float nameStripHeight = 30;

/// An application's place in both strips: slots of equal width, centred this far into them.
inline constexpr float slotCenterOffset = 30;
/// The width of a slot when `count` applications share the screen.
float slotWidth(unsigned count);
/// The centre of slot `index` of `count`.
float slotCenterX(unsigned index, unsigned count);
/// The slot whose centre lies nearest to `x`, halves away from zero; may lie outside of 0 to `count` - 1.
long nearestSlot(float x, unsigned count);

/// The parked window, and its icon strip in the window's coordinates: half-way down, off the screen.
CGRect restingWindowFrame();
CGRect restingIconStripFrame();

/// The grab strip's picture.
inline constexpr const char* grabImagePath = "/Library/Vistrel/VistrelGrab.png";

}  // namespace vistrel
