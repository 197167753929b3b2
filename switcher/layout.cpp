#include "switcher/layout.h"

#include <cmath>

#include "platform/uikit/ui_screen.h"
#include "prefs/settings.h"
#include "switcher/shared_state.h"

namespace vistrel {

float slotWidth(unsigned count) { return screenWidth / static_cast<float>(count); }

float slotCenterX(unsigned index, unsigned count) {
  return slotWidth(count) * static_cast<float>(index) + slotCenterOffset;
}

long nearestSlot(float x, unsigned count) { return lroundf((x - slotCenterOffset) / slotWidth(count)); }

float restingX() {
  const float distance = screenWidth - static_cast<float>(settings.visibleEdge);
  return std::trunc(settings.swipeDirection == word::right ? distance : -distance);
}

CGRect restingWindowFrame() { return CGRectMake(restingX(), 0, screenWidth, screenHeight); }

CGRect restingIconStripFrame() {
  return CGRectMake(restingX(), screenHeight * 0.5f - halfIconStripHeight, screenWidth, iconStripHeight);
}

float deviceScale() {
  UIScreen& screen = UIScreen::mainScreen();
  return screen.respondsToSelector("scale") ? std::trunc(screen.scale()) : 1.0f;
}

}  // namespace vistrel
