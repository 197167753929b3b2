#include "strips/name_dragger.h"

#include <cmath>

#include "platform/foundation/delayed_perform.h"
#include "platform/runtime/message.h"
#include "platform/uikit/ui_bezier_path.h"
#include "prefs/settings.h"
#include "strips/slots.h"
#include "switcher/card_scroller.h"
#include "switcher/layout.h"
#include "switcher/rotation.h"
#include "switcher/shared_state.h"
#include "switcher/spring_board.h"
#include "switcher/views.h"

namespace vistrel {
namespace {

constexpr const char* enlargeName = "enlargeNameAtIndex:";
constexpr double enlargeDelay = 0.5;

constexpr CGSize labelSize{80, 20};
constexpr float labelShadowOpacity = 0.5f;
constexpr float labelCornerRadius = 8;

constexpr float restingScale = 0.7f;
constexpr float rolledScale = -0.7f;
constexpr float shrunkScale = 0.5f;
constexpr float bounce = 5;

void registerActions() {
  ActionWithObject enlarge = [](NSObject& self, const id& index) {
    if (auto* number = dynamic_cast<NSNumber*>(index.get()))
      static_cast<NameDragger&>(self).enlargeNameAtIndex(*number);
  };
  NameDragger::objcClass().addMethod(enlargeName, enlarge);
}

std::string displayName(const std::string& identifier) {
  SBApplication* application = applicationWithIdentifier(identifier);
  return application ? application->displayName() : std::string();
}

void setLooks(UILabel& label) {
  label.setTextColor(UIColor::whiteColor());
  label.setBackgroundColor(UIColor::clearColor());
  label.setTextAlignment(UITextAlignment::Center);
  CALayer& layer = label.layer();
  layer.setMasksToBounds(true);
  layer.setShadowColor(UIColor::blackColor().cgColor());
  layer.setShadowOffset(CGSizeZero);
  layer.setShadowOpacity(labelShadowOpacity);
  layer.setCornerRadius(labelCornerRadius);
  layer.setShadowPath(UIBezierPath::bezierPathWithRect(label.bounds()).cgPath());
}

Looks looks() {
  return {.animation = settings.nameAnimation,
          .resting = restingScale,
          .rolled = rolledScale,
          .shrunk = shrunkScale,
          .bounce = bounce,
          .centerY = nameCenterY,
          .fades = settings.nameFade};
}

}  // namespace

NameDragger::NameDragger(CGRect frame) : UIView(frame) {
  registerActions();
  setUserInteractionEnabled(false);
}

void NameDragger::shuffleNames() {
  removeAllSubviews(*this);
  names_.clear();
  forEachSlot([&](const std::string& identifier, float centerX) {
    auto label = std::make_shared<UILabel>(CGRect{{0, 0}, labelSize});
    label->setCenter(CGPointMake(centerX, nameCenterY));
    label->setText(displayName(identifier));
    setLooks(*label);
    addSubview(label);
    names_.push_back(label);
  });
}

void NameDragger::prepForActivatorActivation() {
  for (const auto& name : names_) scaleLayer(*name, restingScale);
}

void NameDragger::touchesBegan(const UITouchSet& touches, UIEvent*) {
  if (UITouch* touch = anyObject(touches)) startPoint_ = touch->locationInView(this);
}

/// The first name whose centre lies at or to the right of `x`; beyond the last one, the second-to-last. A
/// single name is always the one: there is no other that could be meant.
int NameDragger::selectionAt(float x) const {
  const int count = static_cast<int>(names_.size());
  if (count == 1) return 0;
  int index = static_cast<int>(ceilf((x - slotCenterOffset) / slotWidth(switcherWindow->appCount())));
  if (index < 0 || index >= count) index = count - 2;
  return index < 0 ? 1 : index;
}

void NameDragger::touchesMoved(const UITouchSet& touches, UIEvent*) {
  UITouch* touch = anyObject(touches);
  if (!touch || !switcherWindow || names_.empty()) return;
  const int index = selectionAt(touch->locationInView(this).x);
  if (static_cast<float>(index) == lastIndex_) return;

  cancelPreviousPerformRequests(*this, enlargeName, NSNumber::numberWithInt(static_cast<int>(lastIndex_)));
  lastIndex_ = static_cast<float>(index);
  performSelector(shared_from_this(), enlargeName, NSNumber::numberWithInt(index), enlargeDelay);

  animateSelection(names_, names_[static_cast<std::size_t>(index)].get(), looks());
}

void NameDragger::touchesEnded(const UITouchSet&, UIEvent*) {}

void NameDragger::enlargeNameAtIndex(const NSNumber&) {}

void NameDragger::didRotateFromInterfaceOrientation(UIInterfaceOrientation from) { reorient(*this, from); }

bool NameDragger::shouldAutorotateToInterfaceOrientation(int orientation) {
  return isInterfaceOrientation(orientation);
}

}  // namespace vistrel
