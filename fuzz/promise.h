#pragma once

#include <cstdio>
#include <cstdlib>

/// What every target needs: a way to say what must hold for any input.
namespace fuzz {

/// Ends the process where the promise is broken, and libFuzzer keeps the input.
inline void require(bool holds, const char* promise) {
  if (holds) return;
  std::fprintf(stderr, "Broken promise: %s\n", promise);
  std::abort();
}

}  // namespace fuzz
