#include "startup/vistrel_listener.h"

#include "switcher/card_scroller.h"
#include "switcher/shared_state.h"

namespace vistrel {
namespace {

void close(LAEvent& event) {
  if (!switcherOpen) return;
  if (switcherWindow) switcherWindow->hide();
  event.setHandled(true);
}

}  // namespace

void VistrelListener::receiveDeactivateEvent(LAActivator&, LAEvent& event) { close(event); }

void VistrelListener::otherListenerDidHandleEvent(LAActivator&, LAEvent&) {}

void VistrelListener::abortEvent(LAActivator&, LAEvent& event) { close(event); }

void VistrelListener::receiveEvent(LAActivator&, LAEvent& event) {
  if (!switcherWindow || switcherOpen) return;
  const float middle = screenHeight * 0.5f;
  iconPickMode = true;
  switcherWindow->setStartPoint(CGPointMake(0, middle));
  switcherWindow->showAtPoint(middle);
  event.setHandled(true);
}

}  // namespace vistrel
