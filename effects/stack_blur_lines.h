#pragma once

#include <cstdint>

namespace vistrel {

/// Blurs as applyStackBlurToBuffer says, for every radius and on every machine, a row and a column at a time;
/// the largest radii with sums of 128 bits. `width` and `height` are at least 1.
void blurInLines(std::uint8_t* buffer, std::uint32_t width, std::uint32_t height, std::uint32_t radius);

}  // namespace vistrel
