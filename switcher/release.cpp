#include "platform/springboard/gs_event.h"
#include "platform/uikit/ui_application.h"
#include "prefs/settings.h"
#include "switcher/card_scroller.h"
#include "switcher/layout.h"
#include "switcher/shared_state.h"
#include "switcher/spring_board.h"

namespace vistrel {
namespace {

constexpr float screenEndBand =
    40;  // A swipe counts when it ends this close to the top or bottom of the screen.

}  // namespace

void CardScroller::touchesEnded(const UITouchSet& touches, UIEvent*) {
  if (keyboardIsOnScreen()) return;
  setUserInteractionEnabled(true);
  if (!switcherOpen) return;

  bool hideAtEnd = true;
  UITouch* touch = anyObject(touches);
  if (touch && recentIDs_) {
    const auto [x, y] = touch->locationInView(this);
    const bool isPick = y > startPoint_.y - pickBand && y < startPoint_.y + pickBand;
    if (isPick) {
      const long index = nearestSlot(x, appCount());
      const bool onApp = index >= 0 && index < static_cast<long>(appCount());
      if (onApp && iconPickMode) {
        iconPickMode = false;
      } else if (onApp) {
        openAppAtIndex(index);
      }
    } else if (settings.swipeActionEnabled) {
      hideAtEnd = !runSwipeActions(y);
    }
  }
  if (hideAtEnd && !iconPickMode) hide();
}

/// A finger that the system takes away chooses nothing; without one, nobody could close what it has opened.
void CardScroller::touchesCancelled(const UITouchSet&, UIEvent*) {
  setUserInteractionEnabled(true);
  if (switcherOpen && !iconPickMode) hide();
}

/// Runs the action of each screen end that the swipe has reached. True when one of them closes to the home
/// screen.
bool CardScroller::runSwipeActions(float y) {
  bool closesToHome = false;
  auto run = [&](const std::string& action) {
    if (action == word::home && !deviceIsLocked()) {
      UIApplication::sharedApplication().quitTopApplication(nullptr);
      closesToHome = true;
      closeToSB();
    } else if (action == word::lock) {
      GSEventLockDevice();
    }
  };
  if (y >= screenHeight - screenEndBand) run(settings.swipeDownAction);
  if (y <= screenEndBand) run(settings.swipeUpAction);
  return closesToHome;
}

}  // namespace vistrel
