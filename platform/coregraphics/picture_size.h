#pragma once

#include <cstdint>

/// False for a picture whose header announces more than is worth decoding, or more than can be drawn.
/// `largestSide`, in pixels, is what the caller can do with. Internal.
bool isAcceptablePictureSize(std::uint32_t width, std::uint32_t height, std::uint32_t largestSide);
