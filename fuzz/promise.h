#pragma once

#include <cstdio>
#include <cstdlib>

#include "platform/foundation/ns_data.h"

/// What every target needs: a way to say what must hold for any input.
namespace fuzz {

/// Ends the process where the promise is broken, and libFuzzer keeps the input.
inline void require(bool holds, const char* promise) {
  if (holds) return;
  std::fprintf(stderr, "Broken promise: %s\n", promise);
  std::abort();
}

inline NSData dataOf(const std::uint8_t* bytes, std::size_t size) { return NSData(bytes, bytes + size); }

}  // namespace fuzz
