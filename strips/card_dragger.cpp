#include "strips/card_dragger.h"

#include "platform/runtime/message.h"
#include "platform/springboard/sb_application_icon.h"
#include "prefs/settings.h"
#include "strips/name_dragger.h"
#include "strips/slots.h"
#include "switcher/card_scroller.h"
#include "switcher/rotation.h"
#include "switcher/shared_state.h"
#include "switcher/spring_board.h"
#include "switcher/views.h"

namespace vistrel {
namespace {

constexpr float iconSide = 60;
constexpr std::int32_t noIconYet = 9999;

/// A null number or sender counts as zero, as a message to null answers.
void registerActions() {
  ActionWithObject enlarge = [](NSObject& self, const id& index) {
    const NSNumber zero(0);
    auto* number = dynamic_cast<const NSNumber*>(index.get());
    static_cast<CardDragger&>(self).enlargeIconAtIndex(number ? *number : zero);
  };
  ActionWithObject open = [](NSObject& self, const id& sender) {
    static_cast<CardDragger&>(self).openApp(dynamic_cast<UIView*>(sender.get()));
  };
  CardDragger::objcClass().addMethod("enlargeIconAtIndex:", enlarge);
  CardDragger::objcClass().addMethod("openApp:", open);
}

std::shared_ptr<UIImage> iconImage(const std::string& identifier) {
  auto icon = std::make_shared<SBApplicationIcon>(applicationWithIdentifier(identifier));
  return icon->getIconImage(SBApplicationIcon::HomeScreenVariant);
}

/// Effects that only move or turn an icon need it there from the start; the others let it grow from nothing.
bool growsFromNothing() {
  return settings.iconAnimation == word::grow || settings.iconAnimation == word::none;
}

}  // namespace

CardDragger::CardDragger(CGRect frame) : UIView(frame), draggableIcon_(noIconYet) {
  registerActions();
  setUserInteractionEnabled(true);
}

void CardDragger::shuffleIcons() {
  setUserInteractionEnabled(true);
  removeAllSubviews(*this);
  icons_.clear();
  if (nameStrip) nameStrip->shuffleNames();
  forEachSlot([&](const std::string& identifier, float centerX) {
    auto icon = std::make_shared<UIImageView>();
    icon->setImage(iconImage(identifier));
    icon->setFrame(CGRectMake(0, 0, iconSide, iconSide));
    icon->setCenter(CGPointMake(centerX, iconCenterY));
    icon->setAlpha(1);
    icon->setUserInteractionEnabled(true);
    icons_.push_back(icon);
    addSubview(icon);
    if (growsFromNothing()) scaleLayer(*icon, 0);
  });
}

void CardDragger::prepForActivatorActivation() {
  for (const auto& icon : icons_) icon->setAlpha(1);
  if (nameStrip) nameStrip->prepForActivatorActivation();
}

void CardDragger::scrollIcons(float) {}

void CardDragger::didRotateFromInterfaceOrientation(UIInterfaceOrientation from) { reorient(*this, from); }

bool CardDragger::shouldAutorotateToInterfaceOrientation(int orientation) {
  return isInterfaceOrientation(orientation);
}

}  // namespace vistrel
