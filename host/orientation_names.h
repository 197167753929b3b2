#pragma once

#include <optional>
#include <string_view>

#include "platform/uikit/ui_orientation.h"

namespace host {

/// The words that scripts and descriptions have for the ways of holding a device ("LANDSCAPE_LEFT").
std::optional<UIDeviceOrientation> orientationNamed(std::string_view name);
/// "UNKNOWN" for an orientation that no script can ask for.
std::string_view nameOf(UIDeviceOrientation orientation);

}  // namespace host
