#include "platform/uikit/ui_screen.h"

#include "platform/uikit/display.h"
#include "platform/uikit/ui_kit.h"

UIScreen& UIScreen::mainScreen() {
  registerUIKitClasses();
  static auto screen = std::make_shared<UIScreen>();
  return *screen;
}

CGRect UIScreen::bounds() const { return {{0, 0}, currentDisplay().size()}; }

CGFloat UIScreen::scale() const { return currentDisplay().scale(); }
