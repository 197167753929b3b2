#include "host/script_fingers.h"

#include <algorithm>
#include <cmath>

#include "host/touch_commands.h"

namespace host {
namespace {

constexpr int firstFinger = 0;

CGPoint between(CGPoint from, CGPoint to, CGFloat share) {
  return {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share};
}

}  // namespace

void ScriptFingers::touch(const TouchCommand& command) {
  performTouch(command, firstFinger, time_.now());
  time_.turn();
}

void ScriptFingers::tap(const TapCommand& tap) {
  touch({TouchAction::Down, tap.point});
  time_.advanceBy(tap.duration);
  touch({TouchAction::Up, tap.point});
}

void ScriptFingers::swipe(const SwipeCommand& swipe) {
  const CFTimeInterval start = time_.now();
  const CGFloat length = std::hypot(swipe.to.x - swipe.from.x, swipe.to.y - swipe.from.y);
  const int moves = std::max(1, int(std::ceil(length / swipe.delta)));
  touch({TouchAction::Down, swipe.from});
  for (int move = 1; move < moves; ++move) {
    time_.advanceTo(start + swipe.duration * move / moves);
    touch({TouchAction::Move, between(swipe.from, swipe.to, swipe.delta * CGFloat(move) / length)});
  }
  time_.advanceTo(start + swipe.duration);
  touch({TouchAction::Move, swipe.to});
  touch({TouchAction::Up, swipe.to});
}

void ScriptFingers::cancelAll() { cancelTouches(firstFinger, time_.now()); }

}  // namespace host
