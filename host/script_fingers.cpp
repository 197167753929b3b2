#include "host/script_finger.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "host/failure.h"
#include "platform/uikit/touch_dispatcher.h"
#include "platform/uikit/ui_screen.h"

namespace host {
namespace {

constexpr int finger = 0;

/// The far edges count: a finger at the very rim is on the glass.
void requireOnScreen(CGPoint point) {
  const CGSize size = UIScreen::mainScreen().bounds().size;
  if (point.x >= 0 && point.x <= size.width && point.y >= 0 && point.y <= size.height) return;
  throw Failure(fmt::format("({}, {}) is not on the screen of {} x {} points", point.x, point.y, size.width,
                            size.height));
}

CGPoint between(CGPoint from, CGPoint to, CGFloat share) {
  return {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share};
}

}  // namespace

void ScriptFinger::touch(TouchAction action, CGPoint point) {
  TouchDispatcher& dispatcher = TouchDispatcher::shared();
  switch (action) {
    case TouchAction::Down:
      requireOnScreen(point);
      dispatcher.down(finger, point, time_.now());
      break;
    case TouchAction::Move:
      dispatcher.move(finger, point, time_.now());
      break;
    case TouchAction::Up:
      dispatcher.up(finger, point, time_.now());
      break;
  }
  time_.turn();
}

void ScriptFinger::tap(const TapCommand& tap) {
  touch(TouchAction::Down, tap.point);
  time_.advanceBy(tap.duration);
  touch(TouchAction::Up, tap.point);
}

void ScriptFinger::swipe(const SwipeCommand& swipe) {
  const CFTimeInterval start = time_.now();
  const CGFloat length = std::hypot(swipe.to.x - swipe.from.x, swipe.to.y - swipe.from.y);
  const int moves = std::max(1, int(std::ceil(length / swipe.delta)));
  touch(TouchAction::Down, swipe.from);
  for (int move = 1; move < moves; ++move) {
    time_.advanceTo(start + swipe.duration * move / moves);
    touch(TouchAction::Move, between(swipe.from, swipe.to, swipe.delta * CGFloat(move) / length));
  }
  time_.advanceTo(start + swipe.duration);
  touch(TouchAction::Move, swipe.to);
  touch(TouchAction::Up, swipe.to);
}

void ScriptFinger::cancel() {
  TouchDispatcher& dispatcher = TouchDispatcher::shared();
  if (dispatcher.isDown(finger)) dispatcher.cancel(finger, time_.now());
}

}  // namespace host
