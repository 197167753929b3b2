#pragma once

namespace vistrel {

/// The grab strip's picture.
inline constexpr const char* grabImagePath = "/Library/Vistrel/VistrelGrab.png";

/// The cached picture of the home screen. JPEG data, whatever its name says: readers go by content.
inline constexpr const char* homeScreenPicturePath = "/private/var/mobile/Library/Caches/VitsrelSB.png";

}  // namespace vistrel
