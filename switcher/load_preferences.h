#pragma once

#include <string>

namespace vistrel {

/// True once preferences have been loaded; never reset.
extern bool prefsLoaded;

/// Reads the screen's size and the preferences, and applies them to the switcher where it lives already: it
/// is parked anew and shows its icons afresh. Where there is no preferences file, writes one with the
/// defaults and takes those.
void loadPreferences();

/// The callback of the notification that says that the files have changed.
void prefsChangedCallback(void* observer, const std::string& name);

}  // namespace vistrel
