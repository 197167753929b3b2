#pragma once

#include "platform/activator/activator.h"

namespace vistrel {

/// Opens and closes the switcher for the gestures that the user has assigned to it in Activator. Without
/// state.
class VistrelListener : public NSObject, public LAListener {
  OBJC_CLASS(VistrelListener, NSObject)
 public:
  void receiveDeactivateEvent(LAActivator& activator, LAEvent& event) override;
  void otherListenerDidHandleEvent(LAActivator& activator, LAEvent& event) override;
  void abortEvent(LAActivator& activator, LAEvent& event) override;
  /// Opens a closed switcher half-way down the screen, for a pick; an open one stays, and the event
  /// unhandled.
  void receiveEvent(LAActivator& activator, LAEvent& event) override;
};

}  // namespace vistrel
