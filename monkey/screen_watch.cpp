#include "monkey/screen_watch.h"

#include "monkey/invariant_violation.h"
#include "platform/quartzcore/screen_changes.h"
#include "platform/uikit/display.h"
#include "platform/uikit/ui_window.h"

namespace monkey {
namespace {

void drawContentAfresh(CALayer& layer) {
  layer.setNeedsDisplay();
  for (const auto& sublayer : layer.sublayers()) drawContentAfresh(*sublayer);
}

}  // namespace

void ScreenWatch::look() {
  ++looks_;
  const CFTimeInterval now = RunLoop::main().now();
  const bool mayHaveMoved = anyAnimationRuns() && now != time_;
  const bool isUnchanged = picture_ && screenChangeCount() == changes_ && !mayHaveMoved;
  const CGImageRef picture = UIGetScreenImage();
  if (isUnchanged) {
    ++looksAtUnchanged_;
    if (!CGImage::samePixels(*picture, *picture_))
      throw InvariantViolation("the picture changed unannounced");
  }
  for (UIWindow* window : UIWindow::allWindows()) drawContentAfresh(window->layer());
  picture_ = UIGetScreenImage();
  if (!CGImage::samePixels(*picture, *picture_))
    throw InvariantViolation("kept content differs from content drawn afresh");
  changes_ = screenChangeCount();
  time_ = now;
}

}  // namespace monkey
