#include "switcher/load_preferences.h"

#include "platform/uikit/ui_screen.h"
#include "prefs/preference_files.h"
#include "prefs/settings.h"
#include "strips/card_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/layout.h"
#include "switcher/shared_state.h"
#include "switcher/window_level.h"

namespace vistrel {
namespace {

void readScreenSize() {
  screenBounds = UIScreen::mainScreen().bounds();
  screenWidth = screenBounds.size.width;
  screenHeight = screenBounds.size.height;
}

void applyToLiveSwitcher() {
  if (switcherWindow) {
    if (iconStrip) iconStrip->setFrame(restingIconStripFrame());
    switcherWindow->setFrame(restingWindowFrame());
    switcherWindow->setWindowLevel(openLevel);
    if (settings.favouritesEnabled) switcherWindow->setRecentIDs(favouriteApps);
  }
  if (iconStrip) iconStrip->shuffleIcons();
}

void loadDefaults() {
  PropertyListDictionary defaults = defaultPreferences();
  writePreferencesFile(defaults);
  applyPreferences(defaults);
}

}  // namespace

bool prefsLoaded = false;

void loadPreferences() {
  readScreenSize();
  if (auto preferences = readPreferencesFile()) {
    applyPreferences(*preferences);
    applyToLiveSwitcher();
    readDisabledApps();
  } else {
    loadDefaults();
  }
  prefsLoaded = true;
}

void prefsChangedCallback(void*, const std::string&) {
  loadPreferences();
  // Once more: a load that had to write the file anew has left the strip alone.
  if (iconStrip) iconStrip->shuffleIcons();
}

}  // namespace vistrel
