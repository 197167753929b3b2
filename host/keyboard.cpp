#include "host/keyboard.h"

#include "host/interface_orientation.h"
#include "platform/uikit/ui_keyboard.h"

namespace host {

void layOutKeyboard(CGSize screen, UIInterfaceOrientation orientation) {
  UIKeyboard* keyboard = UIPeripheralHost::sharedInstance().automaticKeyboard();
  UIWindow* window = keyboard ? keyboard->targetWindow() : nullptr;
  if (!window) return;
  const CGSize interface = interfaceSize(screen, orientation);
  const CGFloat height = UIKeyboard::heightOn(screen, orientation);
  // From the middle of the screen to the middle of the keyboard.
  const CGAffineTransform upright = uprightTransform(orientation);
  const CGPoint offset = CGPointApplyAffineTransform({0, (interface.height - height) / 2}, upright);
  window->setTransform(upright);
  window->setBounds(CGRectMake(0, 0, interface.width, height));
  window->setCenter({screen.width / 2 + offset.x, screen.height / 2 + offset.y});
  keyboard->setFrame(window->bounds());
}

}  // namespace host
