#include "host/touch_commands.h"

#include <fmt/format.h>

#include "host/failure.h"
#include "platform/uikit/touch_dispatcher.h"
#include "platform/uikit/ui_screen.h"

namespace host {
namespace {

/// The far edges count: a finger at the very rim is on the glass.
void requireOnScreen(CGPoint point) {
  const CGSize size = UIScreen::mainScreen().bounds().size;
  if (point.x >= 0 && point.x <= size.width && point.y >= 0 && point.y <= size.height) return;
  throw Failure(fmt::format("({}, {}) is not on the screen of {} x {} points", point.x, point.y, size.width,
                            size.height));
}

}  // namespace

void performTouch(const TouchCommand& command, int firstFinger, CFTimeInterval timestamp) {
  TouchDispatcher& dispatcher = TouchDispatcher::shared();
  const int finger = firstFinger + command.finger;
  switch (command.action) {
    case TouchAction::Down:
      requireOnScreen(command.point);
      return dispatcher.down(finger, command.point, timestamp);
    case TouchAction::Move:
      return dispatcher.move(finger, command.point, timestamp);
    case TouchAction::Up:
      return dispatcher.up(finger, command.point, timestamp);
    case TouchAction::Cancel:
      return dispatcher.cancel(finger, timestamp);
  }
}

void cancelTouches(int firstFinger, CFTimeInterval timestamp) {
  TouchDispatcher& dispatcher = TouchDispatcher::shared();
  for (int finger = firstFinger; finger < firstFinger + mostFingers; ++finger) {
    if (dispatcher.isDown(finger)) dispatcher.cancel(finger, timestamp);
  }
}

}  // namespace host
