#pragma once

#include "host/script_command.h"
#include "host/script_time.h"

namespace host {

/// The fingers of a script, which keep their places until they move or lift. What they cannot do throws
/// Failure or IncoherentTouch.
class ScriptFingers {
 public:
  explicit ScriptFingers(ScriptTime& time) : time_(time) {}

  void touch(const TouchCommand& command);
  void tap(const TapCommand& tap);
  void swipe(const SwipeCommand& swipe);
  /// Takes those that are still down away, as the system does when it stops listening.
  void cancelAll();

 private:
  ScriptTime& time_;  // Of the script, which owns both.
};

}  // namespace host
