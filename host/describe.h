#pragma once

#include "host/json_text.h"
#include "host/spring_board.h"
#include "platform/uikit/ui_view.h"

namespace host {

/// Which values a description gives of what is animated.
enum class Values {
  Model,         ///< Where things are going.
  Presentation,  ///< What is on screen now.
};

/// One view and everything in it, back to front.
Json describeView(const UIView& view, Values values);

/// The alerts on screen, oldest first, and all windows, back to front.
Json describeAlerts();
Json describeWindows(Values values);

/// How the device is held and what it is doing.
Json describeDevice(const SpringBoard& springBoard);

/// The whole device: time, state, alerts, windows.
Json describe(const SpringBoard& springBoard, Values values);

}  // namespace host
