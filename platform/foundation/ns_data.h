#pragma once

#include <cstdint>
#include <vector>

/// Bytes.
using NSData = std::vector<std::uint8_t>;
