#include "platform/uikit/display.h"

#include <stdexcept>

#include "platform/foundation/run_loop.h"
#include "platform/uikit/ui_window.h"

namespace {

std::shared_ptr<Display>& installedDisplay() {
  static std::shared_ptr<Display> display;
  return display;
}

}  // namespace

void setDisplay(std::shared_ptr<Display> display) { installedDisplay() = std::move(display); }

Display& currentDisplay() {
  if (!installedDisplay()) throw std::logic_error("no display has been installed");
  return *installedDisplay();
}

CGImageRef WindowDisplay::picture() const {
  std::vector<const CALayer*> layers;
  for (const UIWindow* window : UIWindow::allWindows()) {
    if (!window->hidden()) layers.push_back(&window->layer());
  }
  return compositor_.frame(layers, size_, scale_, RunLoop::main().now());
}

CGImageRef UIGetScreenImage() { return currentDisplay().picture(); }
