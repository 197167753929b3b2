#include <cmath>

#include "platform/uikit/ui_keyboard.h"
#include "platform/uikit/ui_screen.h"
#include "prefs/settings.h"
#include "strips/card_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/layout.h"
#include "switcher/shared_state.h"
#include "switcher/spring_board.h"
#include "switcher/views.h"

namespace vistrel {
namespace {

constexpr float openingMargin = 90;  // No opening this close to the top or the bottom of the screen.
constexpr float slack = 2;           // Shifts every threshold a little up and to the left.
constexpr float straightness = 2;    // A straight swipe along the edge strays no farther sideways.

constexpr float peekBand = 100;       // Within this of where the touch began there is no peek.
constexpr float peekThreshold = 40;   // Beyond this the peek is upward, or downward.
constexpr float upperBandLead = 60;   // The upper band's lower edge hangs this far below the finger,
constexpr float lowerBandLead = 62;   // the lower band's upper edge this far above it,
constexpr float middleBandLead = 60;  // and the middle bands follow at this distance.
constexpr double endPeekDuration = 0.2;

// Where the lower band returns to, measured from where the touch began and not from the split.
constexpr float openBottomBandDrop = gapHalf + splitBelowFinger;

void moveToY(const std::shared_ptr<UIImageView>& view, float y) { place(view, 0, y, sizeOf(view)); }

/// Hangs the band from the finger by its picture's lower edge.
void hangAbove(const std::shared_ptr<UIImageView>& view, float y) {
  moveToY(view, y - bandSize(view).height + upperBandLead);
}

}  // namespace

UIView* CardScroller::hitTest(CGPoint point, UIEvent* event) {
  UIView* hit = UIWindow::hitTest(point, event);
  if (keyboardIsOnScreen()) {
    // Under a keyboard the switcher keeps only what lies on it; its empty area belongs to the windows below.
    UIKeyboard* keyboard = UIPeripheralHost::sharedInstance().automaticKeyboard();
    UIWindow* typing = keyboard ? keyboard->targetWindow() : nullptr;
    setWindowLevel(typing ? std::trunc(typing->windowLevel()) : UIWindowLevelNormal);
    return hit == this ? nullptr : hit;
  }
  setUserInteractionEnabled(true);
  return hit;
}

void CardScroller::touchesBegan(const UITouchSet& touches, UIEvent* event) {
  if (keyboardIsOnScreen()) return;
  setUserInteractionEnabled(true);
  setAlpha(1);
  UITouch* touch = anyObject(touches);
  if (touch && !iconPickMode) startPoint_ = touch->locationInView(this);
  if (switcherOpen && iconStrip) iconStrip->touchesBegan(touches, event);
}

void CardScroller::touchesMoved(const UITouchSet& touches, UIEvent* event) {
  if (keyboardIsOnScreen()) return;
  setUserInteractionEnabled(true);
  setAlpha(1);
  UITouch* touch = anyObject(touches);
  if (!touch) return;

  // Read before opening moves the window under the finger.
  const CGPoint finger = touch->locationInView(this);
  const float screenEnd = UIScreen::mainScreen().bounds().size.height;
  const bool clearOfScreenEnds = finger.y >= openingMargin && finger.y <= screenEnd - openingMargin;
  if (clearOfScreenEnds && !switcherOpen) openIfPulledFar(finger);

  if (!switcherOpen) return;
  if (iconStrip) iconStrip->touchesMoved(touches, event);
  if (finishedOpenAnimation && settings.swipeActionEnabled) peek(finger.y);
}

bool CardScroller::opensAlongEdge(CGPoint finger) const {
  const float edge = static_cast<float>(settings.visibleEdge);
  return settings.upDownOpen &&
         (finger.y >= startPoint_.y + edge - slack || finger.y <= startPoint_.y - edge - slack);
}

void CardScroller::openIfPulledFar(CGPoint finger) {
  const auto [startX, startY] = startPoint_;
  const float edge = static_cast<float>(settings.visibleEdge);
  if (opensAlongEdge(finger)) {
    const bool straight = finger.x >= startX - straightness && finger.x <= startX + straightness;
    if (straight) openAt(finger.y, Opening::Pick);
  } else if (finger.x >= startX + edge - slack) {
    openAt(finger.y, Opening::Drag);
  } else if (finger.x <= startX - edge - slack && finger.y >= startY - edge - slack &&
             finger.y <= startY + edge - slack) {
    openAt(finger.y, Opening::Drag);
  }
}

void CardScroller::openAt(float fingerHeight, Opening opening) {
  iconPickMode = opening == Opening::Pick;
  showAtPoint(fingerHeight + splitBelowFinger);
}

void CardScroller::peek(float y) {
  const float startY = startPoint_.y;
  const bool nearStart = y > startY - peekBand && y < startY + peekBand;
  if (nearStart) {
    if (showingSBViews_) endPeek();
    return;
  }
  fade(sbTop_, 1);
  fade(sbBottom_, 1);
  if (y <= startY - peekThreshold && settings.swipeUpAction != word::none) peekUpward(y);
  if (y >= startY + peekThreshold && settings.swipeDownAction != word::none) peekDownward(y);
  showingSBViews_ = true;
}

void CardScroller::peekUpward(float y) {
  hangAbove(topImageView_, y);
  if (!settings.isFlat()) return;
  if (settings.flatGoesUp()) {
    hangAbove(middleImageView_, y);
  } else if (settings.flatSplits()) {
    hangAbove(topMiddleImageView_, y);
  }
}

void CardScroller::peekDownward(float y) {
  moveToY(bottomImageView_, y - lowerBandLead);
  if (!settings.isFlat()) return;
  if (settings.flatGoesDown()) {
    moveToY(middleImageView_, y + middleBandLead);
  } else if (settings.flatSplits()) {
    moveToY(bottomMiddleImageView_, y - middleBandLead);
  }
}

void CardScroller::endPeek() {
  const float startY = startPoint_.y;
  beginAnimations();
  setAnimationDuration(endPeekDuration);
  if (settings.pushes() || settings.isFlat()) {
    moveToY(topImageView_, settings.pushes() ? -gapHalf : 0);
    place(bottomImageView_, 0, startY + openBottomBandDrop,
          {sizeOf(bottomImageView_).width, bandSize(bottomImageView_).height});
  }
  if (settings.isFlat()) {
    if (settings.flatGoesUp()) {
      moveToY(middleImageView_, startY - middleBandTravel);
    } else if (settings.flatGoesDown()) {
      moveToY(middleImageView_, startY + middleBandTravel);
    } else if (settings.flatSplits()) {
      moveToY(bottomMiddleImageView_, startY + halfBandTravel);
      moveToY(topMiddleImageView_, startY - halfBandTravel);
    }
  }
  commitAnimations();
  showingSBViews_ = false;
}

}  // namespace vistrel
