#pragma once

#include <optional>
#include <string_view>

#include "platform/foundation/property_list.h"

/// The check that every document passes before it reaches the parser.
///
/// The parser recurses and writes shared objects out once for each reference, so a small hostile document
/// could exhaust the stack, the memory or anybody's patience. Whatever passes here does not: it is of bounded
/// size and depth, has no cycles, and is of bounded size when written out.

/// Arrays and dictionaries inside one another, whether read or written.
inline constexpr std::size_t deepestPropertyList = 512;

/// The format of `document`, by content; nothing when it is of neither format or not safe to parse.
std::optional<PropertyListFormat> parseablePropertyListFormat(std::string_view document);
