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
  /// Lists and descriptions without a file go to `output`. Both outlive this object.
  ScriptVerbs(SpringBoard& springBoard, std::ostream& output) : springBoard_(springBoard), output_(output) {}

  void perform(const ScriptCommand& command);

  /// The script is over: a finger still down goes, and what is under way gets some time to come to an end.
  void drain();
  /// Writes the recording that nobody stopped, if there is one.
  void finishRecording();

 private:
  void run(const LaunchCommand& command);
  void run(const TerminateCommand& command);
  void run(const ButtonCommand& command);
  void run(const UnlockCommand& command);
  void run(const RotateCommand& command);
  void run(const KeyboardCommand& command);
  void run(const ActivatorCommand& command);
  void run(const NotifyPostCommand& command);
  void run(const TapCommand& command);
  void run(const SwipeCommand& command);
  void run(const TouchCommand& command);
  void run(const WaitCommand& command);
  void run(const ScreenshotCommand& command);
  void run(const RecordVideoCommand& command);
  void run(const RecordStopCommand& command);
  void run(const DescribeAllCommand& command);
  void run(const ListAppsCommand& command);

  /// For what takes time: lets it pass until the request has been met.
  template <class Command>
  void performAndSettle(const Command& command);
  void print(const std::string& text);

  SpringBoard& springBoard_;
  std::ostream& output_;
  ScriptTime time_;
  ScriptFingers fingers_{time_};
};

}  // namespace host
