#include "switcher/keyboard.h"

#include "platform/runtime/message.h"

namespace vistrel {

bool keyboardIsOnScreen() {
  static Class* const keyboardClass = objc_getClass("UIKeyboard");
  return sendToClass<bool>(keyboardClass, "isOnScreen");
}

}  // namespace vistrel
