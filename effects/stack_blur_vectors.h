#pragma once

#include <cstdint>

namespace vistrel {

/// Up to here blurInVectors can do it: sums keep within 32 bits, and means are exact.
inline constexpr std::uint32_t maxVectorRadius = 2900;

/// Blurs as applyStackBlurToBuffer says, all channels of many pixels at a time, at a cost that hardly depends
/// on the radius: the picture is gone through once, from the top, and what is held besides are about 2 r
/// rows of it and the state of one. `width` and `height` are at least 1, `radius` is 1 to maxVectorRadius.
/// False, and nothing done, on a machine without vector instructions that are of use here.
bool blurInVectors(std::uint8_t* buffer, std::uint32_t width, std::uint32_t height, std::uint32_t radius);

}  // namespace vistrel
