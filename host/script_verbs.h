#pragma once

#include <ostream>

#include "host/script_command.h"
#include "host/script_fingers.h"
#include "host/script_time.h"
#include "host/spring_board.h"

namespace host {

/// Carries out a script's commands, one after the other. What cannot be done throws Failure, or
/// IncoherentTouch for a finger that cannot move so.
class ScriptVerbs {
 public:
  /// Lists and descriptions without a file go to `output`, frames through `meter` where there is one. All of
  /// them outlive this object.
  ScriptVerbs(SpringBoard& springBoard, std::ostream& output, FrameMeter* meter)
      : springBoard_(springBoard), output_(output), time_(meter) {}

  void perform(const ScriptCommand& command);

  /// The script is over: fingers still down go, and what is under way gets some time to come to an end.
  void drain();
  /// Writes the recording that nobody stopped, if there is one.
  void finishRecording();

 private:
  /// For all commands that are the device's own.
  template <class Command>
  void run(const Command& command);
  void run(const TapCommand& command);
  void run(const SwipeCommand& command);
  void run(const TouchCommand& command);
  void run(const WaitCommand& command);
  void run(const ScreenshotCommand& command);
  void run(const RecordVideoCommand& command);
  void run(const RecordStopCommand& command);
  void run(const DescribeAllCommand& command);
  void run(const ListAppsCommand& command);

  /// Lets time pass until the request just made has been met.
  void settle();

  SpringBoard& springBoard_;
  std::ostream& output_;
  ScriptTime time_;
  ScriptFingers fingers_{time_};
};

}  // namespace host
