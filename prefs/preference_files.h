#pragma once

#include <optional>

#include "platform/foundation/property_list.h"

namespace vistrel {

// On the device.
inline constexpr const char* preferencesPath = "/var/mobile/Library/Preferences/com.zantric.vistrel.plist";
/// The apps file: in front of which applications the switcher hides.
inline constexpr const char* appsPath = "/var/mobile/Library/Preferences/com.zantric.vistrel-apps.plist";

/// The preferences file's dictionary: nothing when there is no file, an empty one when it cannot be read.
std::optional<PropertyListDictionary> readPreferencesFile();

/// A dictionary with every key, favourites apart, at its default, as a new preferences file holds it.
PropertyListDictionary defaultPreferences();

/// Writes the preferences file, whole or not at all; a failure is ignored.
void writePreferencesFile(const PropertyListDictionary& preferences);

/// Sets every setting and the favourites from `preferences`. A key that is absent, or of a type that cannot
/// be converted, leaves its setting as it is or clears it, as the table of keys says.
void applyPreferences(const PropertyListDictionary& preferences);

/// Sets `disabledApps` from the apps file; without that file the list stays.
void readDisabledApps();

}  // namespace vistrel
