#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "host/app_window.h"
#include "platform/springboard/sb_ui_animation_controller.h"

namespace host {

/// The animation from one front screen to the next.
class Transition : public SBUIAnimationController {
 public:
  /// Gives SBUIAnimationController its behaviour.
  static void registerMethods();

  /// Moves the screens, at most one of which is null: out of the icon at `iconCenter` or back into it, or
  /// past each other. Without an icon in view, the middle of the screen takes its place. `ended` runs when
  /// they lie still.
  void run(AppScreen* incoming, AppScreen* outgoing, std::optional<CGPoint> iconCenter,
           std::function<void()> ended);
};

}  // namespace host
