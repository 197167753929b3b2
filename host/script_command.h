#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <variant>

#include "platform/coregraphics/cg_geometry.h"
#include "platform/foundation/run_loop.h"
#include "platform/uikit/ui_orientation.h"

namespace host {

/// What one line of a script asks for: plain values, checked as far as a line can be checked by itself.
/// Points are the screen's, y downward; durations are seconds.

struct LaunchCommand {
  std::string bundle;
};
struct TerminateCommand {
  std::string bundle;
};

enum class Button { Home, Lock };
struct ButtonCommand {
  Button button;
};
struct UnlockCommand {};

struct TapCommand {
  CGPoint point;
  CFTimeInterval duration = 0;
};
struct SwipeCommand {
  CGPoint from, to;
  CFTimeInterval duration = 0.3;
  CGFloat delta = 10;  ///< Points from one move to the next.
};
inline constexpr int mostFingers = 10;
enum class TouchAction { Down, Move, Up, Cancel };
struct TouchCommand {
  TouchAction action;
  CGPoint point;   ///< Of a cancelled finger it does not matter.
  int finger = 0;  ///< Below mostFingers.
};

struct RotateCommand {
  UIDeviceOrientation orientation;
};
struct KeyboardCommand {
  bool show;
};

enum class ActivatorEventKind { Receive, Abort, Deactivate };
struct ActivatorCommand {
  ActivatorEventKind kind;
};
struct NotifyPostCommand {
  std::string name;
};
struct WaitCommand {
  CFTimeInterval seconds;
};

struct ScreenshotCommand {
  std::filesystem::path file;
};
struct RecordVideoCommand {
  std::filesystem::path file;
  CGFloat scale = 1;  ///< Of the recording against the screen; above 0, at most 1.
};
struct RecordStopCommand {};
struct DescribeAllCommand {
  std::optional<std::filesystem::path> file = std::nullopt;  ///< Standard output without one.
  bool presentation = false;
};
struct ListAppsCommand {};

using ScriptCommand =
    std::variant<LaunchCommand, TerminateCommand, ButtonCommand, UnlockCommand, TapCommand, SwipeCommand,
                 TouchCommand, RotateCommand, KeyboardCommand, ActivatorCommand, NotifyPostCommand,
                 WaitCommand, ScreenshotCommand, RecordVideoCommand, RecordStopCommand, DescribeAllCommand,
                 ListAppsCommand>;

}  // namespace host
