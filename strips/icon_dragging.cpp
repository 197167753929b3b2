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
constexpr float pickBand = 40;  // A release this far above or below the touch's beginning opens nothing.

constexpr float fadedAlpha = 0.7f;
constexpr float grownScale = 1.0f;
constexpr float restingGrowScale = 0.7f;  // "Grow" rests at this whatever size the user has chosen.
constexpr double shrinkage = 0.2;
constexpr float bounce = 10;

constexpr double pulseDuration = 0.5;
constexpr float pulseScale = 2;

Look restingLook() {
  const float scale = settings.iconAnimation == word::grow ? restingGrowScale : settings.iconSize;
  return {scale, iconCenterY, settings.iconFade ? fadedAlpha : 1.0f};
}

Look selectedLook(const UIView& icon) {
  const std::string& animation = settings.iconAnimation;
  Look look{settings.iconSize, icon.center().y, 1};
  if (animation == word::grow) {
    look.scale = grownScale;
  } else if (animation == word::roll) {
    look.scale = -settings.iconSize;
  } else if (animation == word::shrink) {
    look.scale = static_cast<float>(static_cast<double>(settings.iconSize) - shrinkage);
  } else if (animation == word::bounceUp) {
    look.centerY -= bounce;
  } else if (animation == word::bounceDown) {
    look.centerY += bounce;
  }
  return look;
}

}  // namespace

std::int32_t CardDragger::indexOf(const UIView* view) const {
  auto found = std::find_if(icons_.begin(), icons_.end(), [&](const auto& icon) { return icon.get() == view; });
  return found == icons_.end() ? NSNotFound : static_cast<std::int32_t>(found - icons_.begin());
}

/// Every icon but `selected` rests; null, or a view that is no icon, lets all of them rest.
void CardDragger::select(const UIView* selected) {
  animateSelection([&] {
    for (const auto& icon : icons_) applyLook(*icon, icon.get() == selected ? selectedLook(*icon) : restingLook());
  });
}

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

void CardDragger::openApp(const UIView& sender) {
  if (!switcherWindow) return;
  switcherWindow->openAppAtIndex(sender.tag());
  switcherWindow->hide();
}

}  // namespace vistrel
