#pragma once

#include "host/script_command.h"
#include "host/spring_board.h"

namespace host {

// The commands that ask something of the device itself, each begun at once; what animates goes on as the run
// loop's time passes. What cannot be done throws Failure.

void perform(SpringBoard& springBoard, const LaunchCommand& command);
void perform(SpringBoard& springBoard, const TerminateCommand& command);
void perform(SpringBoard& springBoard, const ButtonCommand& command);
void perform(SpringBoard& springBoard, const UnlockCommand& command);
void perform(SpringBoard& springBoard, const RotateCommand& command);
void perform(SpringBoard& springBoard, const KeyboardCommand& command);
/// Traces "activator-event" {kind, handled}.
void perform(SpringBoard& springBoard, const ActivatorCommand& command);
void perform(SpringBoard& springBoard, const NotifyPostCommand& command);

}  // namespace host
