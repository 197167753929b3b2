#pragma once

#include "host/script_command.h"
#include "host/script_time.h"

namespace host {

/// The one finger of a script. It can land only on the screen, and keeps its place until it moves or lifts.
/// What it cannot do throws Failure or IncoherentTouch.
class ScriptFinger {
 public:
  explicit ScriptFinger(ScriptTime& time) : time_(time) {}

  void touch(TouchAction action, CGPoint point);
  void tap(const TapCommand& tap);
  void swipe(const SwipeCommand& swipe);
  /// Takes a finger that is still down away, as the system does when it stops listening.
  void cancel();

 private:
  ScriptTime& time_;  // Of the script, which owns both.
};

}  // namespace host
