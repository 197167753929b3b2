#pragma once

#include <algorithm>
#include <string>

#include "platform/uikit/ui_view.h"
#include "switcher/card_scroller.h"
#include "switcher/layout.h"
#include "switcher/shared_state.h"

namespace vistrel {

/// What both strips are laid out and animated by.

inline constexpr float iconCenterY = 30;
inline constexpr float nameCenterY = 10;

/// Calls `place` with each identifier on offer and the centre of its slot. An identifier that is listed twice lies, both
/// times, in the slot of its first mention.
template <class Place>
void forEachSlot(Place place) {
  if (!switcherWindow) return;
  const NSStringArrayRef identifiers = switcherWindow->recentIDs();
  if (!identifiers) return;
  const auto count = static_cast<unsigned>(identifiers->size());
  for (const std::string& identifier : *identifiers) {
    const auto first = std::find(identifiers->begin(), identifiers->end(), identifier) - identifiers->begin();
    place(identifier, slotCenterX(static_cast<unsigned>(first), count));
  }
}

/// How an item of a strip looks: under the finger, or not.
struct Look {
  float scale;    ///< Of its layer, on both axes.
  float centerY;  ///< In the strip's coordinates.
  float alpha;
};

void applyLook(UIView& item, Look look);

/// One short animation in which a strip's items take their looks.
template <class Changes>
void animateSelection(Changes changes) {
  constexpr double selectionDuration = 0.1;
  UIView::beginAnimations();
  UIView::setAnimationDuration(selectionDuration);
  UIView::setAnimationCurve(UIViewAnimationCurve::EaseOut);
  changes();
  UIView::commitAnimations();
}

void removeAllSubviews(UIView& view);

}  // namespace vistrel
