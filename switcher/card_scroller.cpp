#include "switcher/card_scroller.h"

#include "platform/runtime/message.h"
#include "switcher/load_preferences.h"
#include "switcher/shared_state.h"

namespace vistrel {
namespace {

template <void (CardScroller::*operation)()>
void registerAction(const char* selector) {
  ActionWithoutObject action = [](NSObject& self) { (static_cast<CardScroller&>(self).*operation)(); };
  CardScroller::objcClass().addMethod(selector, action);
}

/// What can be sent by name: "hide" for the buttons over the bands, the rest for whoever shares the process.
void registerActions() {
  registerAction<&CardScroller::hide>("hide");
  registerAction<&CardScroller::closeToSB>("closeToSB");
  registerAction<&CardScroller::reloadPrefs>("reloadPrefs");
  registerAction<&CardScroller::didRotate>("didRotate");
}

}  // namespace

CardScroller::CardScroller(CGRect frame)
    : UIWindow(frame), recentIDs_(std::make_shared<const NSStringArray>()) {
  registerActions();
  setUserInteractionEnabled(true);
  rebuildAppList();
  finishedOpenAnimation = false;
}

void CardScroller::reloadPrefs() { loadPreferences(); }

}  // namespace vistrel
