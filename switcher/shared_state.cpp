#include "switcher/shared_state.h"

#include <cmath>
#include <vector>

#include "platform/uikit/ui_screen.h"
#include "prefs/settings.h"

bool finishedOpenAnimation = false;

namespace vistrel {

CardScroller* switcherWindow = nullptr;
CardDragger* iconStrip = nullptr;
NameDragger* nameStrip = nullptr;
bool switcherOpen = false;
bool iconPickMode = false;
bool hiddenForApp = false;
CGRect screenBounds;
float screenWidth = 0;
float screenHeight = 0;
std::shared_ptr<UIImage> springBoardImage;

float restingX() {
  float distance = screenWidth - static_cast<float>(settings.visibleEdge);
  return std::trunc(settings.swipeDirection == word::right ? distance : -distance);
}

float deviceScale() {
  UIScreen& screen = UIScreen::mainScreen();
  return screen.respondsToSelector("scale") ? std::trunc(screen.scale()) : 1.0f;
}

void keepForGood(id object) {
  static auto* kept = new std::vector<id>;
  kept->push_back(std::move(object));
}

}  // namespace vistrel
