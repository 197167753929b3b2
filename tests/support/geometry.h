#pragma once

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "platform/uikit/ui_view.h"

/// What may be asked of a frame whatever the settings hold.
namespace vistrel::test {

inline bool isFinite(CGRect rect) {
  return std::ranges::all_of(
      std::initializer_list<CGFloat>{rect.origin.x, rect.origin.y, rect.size.width, rect.size.height},
      [](CGFloat number) { return std::isfinite(number); });
}

/// A frame is derived, and far off the screen a float is no longer exact to the point.
inline bool liesAt(const UIView& view, CGRect place) {
  constexpr float precision = 1e-6f;
  const auto [origin, size] = view.frame();
  return std::abs(origin.x - place.origin.x) <= std::abs(place.origin.x) * precision &&
         origin.y == place.origin.y && size == place.size;
}

}  // namespace vistrel::test
