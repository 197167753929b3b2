#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/uikit/ui_view.h"

namespace vistrel {

/// What both strips are laid out and animated by.

inline constexpr float iconCenterY = 30;
inline constexpr float nameCenterY = 10;

/// Calls `place` with each identifier on offer and the x of its slot's centre. An identifier that is listed
/// twice lies, both times, in the slot of its first mention.
void forEachSlot(const std::function<void(const std::string& identifier, float centerX)>& place);

/// How a strip's items look, resting and selected. Scales are of the layer, on both axes.
struct Looks {
  std::string_view animation;  ///< The user's choice; a word that nobody knows makes no difference.
  float resting, rolled, shrunk;
  float bounce;   ///< How far a selected item rises or sinks.
  float centerY;  ///< Of resting items, in the strip's coordinates.
  bool fades;     ///< Resting items fade.
};

void rest(UIView& item, const Looks& looks);
void singleOut(UIView& item, const Looks& looks);

/// One short animation after which `selected` stands out and every other item rests. A `selected` that is no
/// item, or null, lets all of them rest.
template <class Items>
void animateSelection(const Items& items, const UIView* selected, const Looks& looks) {
  constexpr double duration = 0.1;
  UIView::beginAnimations();
  UIView::setAnimationDuration(duration);
  UIView::setAnimationCurve(UIViewAnimationCurve::EaseOut);
  for (const auto& item : items) {
    if (item.get() == selected) {
      singleOut(*item, looks);
    } else {
      rest(*item, looks);
    }
  }
  UIView::commitAnimations();
}

void removeAllSubviews(UIView& view);

}  // namespace vistrel
