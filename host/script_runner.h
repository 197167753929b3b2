#pragma once

#include <istream>
#include <ostream>
#include <string>

#include "host/frame_meter.h"
#include "host/spring_board.h"

namespace host {

/// Plays the script on `lines`, each line as it arrives, and returns the process's exit code. A line that is
/// not understood, or that fails, ends the run with "NAME:LINE: cause" on `errors`; a recording under way is
/// kept. The frames go through `meter` where there is one.
int runScript(std::istream& lines, const std::string& name, SpringBoard& springBoard, std::ostream& output,
              std::ostream& errors, FrameMeter* meter = nullptr);

}  // namespace host
