#pragma once

#include <cstdint>
#include <span>

inline constexpr int exifOrientationUp = 1;

/// The orientation, 1 to 8, in the data of a JPEG's APP1 segment. Nothing in it is trusted: a segment of
/// another kind, without an orientation or malformed gives 1. Internal.
int exifOrientation(std::span<const std::uint8_t> app1);
