#include "switcher/layout.h"

#include <cmath>

#include "switcher/shared_state.h"

namespace vistrel {

float slotWidth(unsigned count) { return screenWidth / static_cast<float>(count); }

float slotCenterX(unsigned index, unsigned count) {
  return slotWidth(count) * static_cast<float>(index) + slotCenterOffset;
}

long nearestSlot(float x, unsigned count) { return lroundf((x - slotCenterOffset) / slotWidth(count)); }

CGRect restingWindowFrame() { return CGRectMake(restingX(), 0, screenWidth, screenHeight); }

CGRect restingIconStripFrame() {
  return CGRectMake(restingX(), screenHeight * 0.5f - halfIconStripHeight, screenWidth, iconStripHeight);
}

}  // namespace vistrel
