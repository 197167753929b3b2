#pragma once

#include "host/json_text.h"
#include "host/settings/preference_pane.h"

namespace host {

/// The values of a pane's controls, on their way between property lists and the JSON that pages speak.

/// What the file holds once the control has `value`. Throws Failure, whose text is the cause alone ("not true
/// or false"), for what the control cannot hold. Whether an application is installed is not looked at.
PropertyList storedValue(const Cell& cell, const Json& value);

inline constexpr std::size_t longestShownText = 255;  ///< Bytes of a value.

/// What the control shows for a value that stands in the file, also one that it would not store itself: words
/// that are not on offer, numbers out of range. Null for a value of the wrong type and for a longer text.
Json shownValue(const Cell& cell, const PropertyList& stored);

/// The property list of a domain, a device path.
std::string preferencesPath(const std::string& domain);

/// A boolean, number or string; null for everything else.
Json plainJson(const PropertyList& value);

}  // namespace host
