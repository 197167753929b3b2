#pragma once

#include <string>

#include "host/spring_board.h"
#include "strips/card_dragger.h"
#include "strips/name_dragger.h"
#include "switcher/card_scroller.h"

namespace monkey {

/// What must hold of the switcher and of all that is on the screen, after whatever event.
///
/// Some of it is about changes, so this looks on from boot to the end.
class Invariants {
 public:
  /// Of the device that has just booted.
  explicit Invariants(const host::SpringBoard& springBoard);

  /// After the event of that line. Throws Broken.
  void check(const std::string& line);

 private:
  void checkSwitcher();
  void checkReferences() const;
  void checkClosed();
  void checkOpen() const;
  void checkPlace();
  void checkVisibility();
  void checkStrips() const;
  void checkScreen() const;
  void checkRest() const;

  const host::SpringBoard& springBoard_;

  // The one window and its strips, as the boot left them; null where it made none.
  vistrel::CardScroller* window_;
  vistrel::CardDragger* iconStrip_;
  vistrel::NameDragger* nameStrip_;

  std::string verb_;             // Of the event just performed.
  CGRect frame_;                 // The window's, an event ago.
  bool wasOpen_ = false;         // An event ago.
  bool isHeldAside_ = false;     // The way the device was last held that is not flat was landscape.
  bool wasDeclined_ = false;     // The switcher was to open for a pick where the user does not want it.
  bool wasTouchedBack_ = false;  // While hidden for an application, a finger has brought the window back.
};

}  // namespace monkey
