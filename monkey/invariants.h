#pragma once

#include <map>
#include <string>

#include "host/spring_board.h"
#include "monkey/event.h"
#include "platform/coregraphics/cg_geometry.h"
#include "strips/card_dragger.h"
#include "strips/name_dragger.h"
#include "switcher/card_scroller.h"

namespace monkey {

/// What must hold of the switcher and of all that is on the screen, after whatever event.
///
/// Some of it is about changes, so this looks on from boot to the end.
class Invariants {
 public:
  /// Of the device that has just booted, which has made the window and its icon strip.
  explicit Invariants(const host::SpringBoard& springBoard);

  /// After that event. Throws InvariantViolation.
  void check(const Event& event);

 private:
  void checkReferences() const;
  void checkClosed(const Event& event);
  void checkOpen() const;
  void checkPlace();
  void checkVisibility(const Event& event);
  void checkStrips() const;
  void checkScreen() const;
  void checkRest() const;

  const host::SpringBoard& springBoard_;
  std::map<std::string, std::string> appNames_;  // By bundle identifier.

  // As the boot left them.
  vistrel::CardScroller& window_;
  vistrel::CardDragger& iconStrip_;
  vistrel::NameDragger* nameStrip_;  // Null where names were off.

  CGRect frame_;                 // The window's, an event ago.
  bool wasOpen_ = false;         // An event ago.
  bool isHeldAside_ = false;     // The way the device was last held that is not flat was landscape.
  bool wasDeclined_ = false;     // The switcher was to open for a pick where the user does not want it.
  bool wasTouchedBack_ = false;  // While hidden for an application, a finger has brought the window back.
};

}  // namespace monkey
