#include "switcher/window_level.h"

#include "switcher/card_scroller.h"
#include "switcher/shared_state.h"

namespace vistrel {

void reassertWindowLevel() {
  if (switcherWindow) switcherWindow->setWindowLevel(restingLevel);
}

}  // namespace vistrel
