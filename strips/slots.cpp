#include "strips/slots.h"

#include <algorithm>

#include "prefs/settings.h"
#include "switcher/card_scroller.h"
#include "switcher/layout.h"
#include "switcher/shared_state.h"
#include "switcher/views.h"

namespace vistrel {
namespace {

constexpr float grownScale = 1;
constexpr float fadedAlpha = 0.7f;

}  // namespace

void forEachSlot(const std::function<void(const std::string& identifier, float centerX)>& place) {
  const NSStringArrayRef identifiers = switcherWindow ? switcherWindow->recentIDs() : nullptr;
  if (!identifiers) return;
  const auto count = static_cast<unsigned>(identifiers->size());
  for (const std::string& identifier : *identifiers) {
    const auto first = std::ranges::find(*identifiers, identifier) - identifiers->begin();
    place(identifier, slotCenterX(static_cast<unsigned>(first), count));
  }
}

void rest(UIView& item, const Looks& looks) {
  item.setCenter(CGPointMake(item.center().x, looks.centerY));
  item.setAlpha(looks.fades ? fadedAlpha : 1.0f);
  scaleLayer(item, looks.resting);
}

void singleOut(UIView& item, const Looks& looks) {
  float scale = looks.resting;
  CGPoint center = item.center();
  if (looks.animation == word::grow) {
    scale = grownScale;
  } else if (looks.animation == word::roll) {
    scale = looks.rolled;
  } else if (looks.animation == word::shrink) {
    scale = looks.shrunk;
  } else if (looks.animation == word::bounceUp) {
    center.y -= looks.bounce;
  } else if (looks.animation == word::bounceDown) {
    center.y += looks.bounce;
  }
  item.setCenter(center);
  item.setAlpha(1);
  scaleLayer(item, scale);
}

void removeAllSubviews(UIView& view) {
  const auto present = view.subviews();
  for (const auto& subview : present) subview->removeFromSuperview();
}

}  // namespace vistrel
