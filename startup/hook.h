#pragma once

#include "platform/substrate/substrate.h"

namespace vistrel {

/// The implementation that `Replacement` has taken the place of.
template <auto Replacement>
inline decltype(Replacement) previous = nullptr;

/// One row of the hook table.
struct Hook {
  const char* className;
  const char* selector;
  void (*install)(const Hook& hook);
};

template <auto Replacement>
constexpr Hook hook(const char* className, const char* selector) {
  return {className, selector, [](const Hook& row) {
            MSHookMessageEx(objc_getClass(row.className), row.selector, Replacement, &previous<Replacement>);
          }};
}

}  // namespace vistrel
