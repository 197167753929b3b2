#include "switcher/card_scroller.h"

#include "platform/runtime/message.h"
#include "switcher/load_preferences.h"
#include "switcher/shared_state.h"

namespace vistrel {
namespace {

/// "hide", by name, for the buttons over the bands.
void registerActions() {
  ActionWithoutObject hide = [](NSObject& self) { static_cast<CardScroller&>(self).hide(); };
  CardScroller::objcClass().addMethod("hide", hide);
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
