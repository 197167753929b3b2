#include <algorithm>

#include "prefs/settings.h"
#include "strips/card_dragger.h"
#include "strips/name_dragger.h"
#include "strips/slots.h"
#include "switcher/card_scroller.h"
#include "switcher/layout.h"
#include "switcher/shared_state.h"
#include "switcher/views.h"

namespace vistrel {
namespace {

constexpr std::int32_t noIconDragged = 9999999;
constexpr float restingGrowScale = 0.7f;  // "Grow" rests at this whatever size the user has chosen.
constexpr double shrinkage = 0.2;
constexpr float bounce = 10;

constexpr double pulseDuration = 0.5;
constexpr float pulseScale = 2;

Looks looks() {
  const float size = settings.iconSize;
  return {.animation = settings.iconAnimation,
          .resting = settings.iconAnimation == word::grow ? restingGrowScale : size,
          .rolled = -size,
          .shrunk = static_cast<float>(static_cast<double>(size) - shrinkage),
          .bounce = bounce,
          .centerY = iconCenterY,
          .fades = settings.iconFade};
}

}  // namespace

std::int32_t CardDragger::indexOf(const UIView* view) const {
  auto found =
      std::find_if(icons_.begin(), icons_.end(), [&](const auto& icon) { return icon.get() == view; });
  return found == icons_.end() ? NSNotFound : static_cast<std::int32_t>(found - icons_.begin());
}

/// Every icon but `selected` rests; null, or a view that is no icon, lets all of them rest.
void CardDragger::select(const UIView* selected) { animateSelection(icons_, selected, looks()); }

void CardDragger::touchesBegan(const UITouchSet& touches, UIEvent* event) {
  if (UITouch* touch = anyObject(touches)) startPoint_ = touch->locationInView(this);
  if (nameStrip) nameStrip->touchesBegan(touches, event);
}

void CardDragger::touchesMoved(const UITouchSet& touches, UIEvent* event) {
  UITouch* touch = anyObject(touches);
  if (!touch) return;
  if (nameStrip) nameStrip->touchesMoved(touches, event);

  UIView* hit = hitTest(touch->locationInView(this), event);
  const bool outsideStrip = hit == nullptr;
  if (outsideStrip) select(nullptr);

  const std::int32_t hitIndex = indexOf(hit);
  if (hitIndex == lastIndex_) return;
  draggableIcon_ = noIconDragged;
  lastIndex_ = hitIndex;
  select(hit);
}

void CardDragger::touchesEnded(const UITouchSet& touches, UIEvent*) {
  if (!iconPickMode || !switcherWindow) return;
  UITouch* touch = anyObject(touches);
  if (touch && switcherWindow->recentIDs()) {
    const auto [x, y] = touch->locationInView(this);
    const bool nearStart = y < startPoint_.y + pickBand && y > startPoint_.y - pickBand;
    if (nearStart) switcherWindow->openAppAtIndex(nearestSlot(x, switcherWindow->appCount()));
  }
  switcherWindow->hide();
}

void CardDragger::enlargeIconAtIndex(const NSNumber& index) {
  const auto place = static_cast<std::uint32_t>(index.intValue());
  if (place >= icons_.size()) return;
  UIImageView& icon = *icons_[place];
  auto copy = std::make_shared<UIImageView>(icon.bounds());
  copy->setImage(icon.image());
  icon.addSubview(copy);
  animateWithDuration(
      pulseDuration,
      [&] {
        scaleLayer(*copy, pulseScale);
        copy->setAlpha(0);
      },
      [copy] { copy->removeFromSuperview(); });
  draggableIcon_ = index.intValue();
  if (nameStrip) nameStrip->enlargeNameAtIndex(index);
}

void CardDragger::openApp(const UIView* sender) {
  if (!switcherWindow) return;
  switcherWindow->openAppAtIndex(sender ? sender->tag() : 0);
  switcherWindow->hide();
}

}  // namespace vistrel
