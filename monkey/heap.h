#pragma once

#include <cstddef>

namespace monkey {

/// Whether this is a build with the address sanitizer, which has a heap of its own.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define MONKEY_ADDRESS_SANITIZER 1
#endif
#endif
#if defined(__SANITIZE_ADDRESS__)
#define MONKEY_ADDRESS_SANITIZER 1
#endif
#ifdef MONKEY_ADDRESS_SANITIZER
inline constexpr bool hasAddressSanitizer = true;
#else
inline constexpr bool hasAddressSanitizer = false;
#endif

/// Bytes that are allocated now.
std::size_t bytesAllocated();

}  // namespace monkey
