#include "platform/uikit/ui_control.h"

#include <algorithm>

#include "platform/runtime/message.h"

void UIControl::addTarget(NSObject& target, std::string_view action, unsigned events) {
  auto known = std::ranges::find_if(targets_, [&](const TargetAction& entry) {
    return entry.target.lock().get() == &target && entry.action == action;
  });
  if (known != targets_.end()) {
    known->events |= events;
  } else {
    targets_.push_back({target.weak_from_this(), std::string(action), events});
  }
}

void UIControl::sendActionsForControlEvents(unsigned events) {
  const id self = weak_from_this().lock();
  const auto targets = targets_;  // An action may add more.
  for (const TargetAction& entry : targets) {
    if (!(entry.events & events)) continue;
    if (const id target = entry.target.lock()) performAction(*target, entry.action, self);
  }
}

void UIControl::touchesBegan(const UITouchSet&, UIEvent*) {
  sendActionsForControlEvents(UIControlEventTouchDown);
}

void UIControl::touchesMoved(const UITouchSet&, UIEvent*) {}

void UIControl::touchesEnded(const UITouchSet& touches, UIEvent* event) {
  const UITouch* touch = anyObject(touches);
  if (!touch) return;
  const bool inside = pointInside(touch->locationInView(this), event);
  sendActionsForControlEvents(inside ? UIControlEventTouchUpInside : UIControlEventTouchUpOutside);
}

void UIControl::touchesCancelled(const UITouchSet&, UIEvent*) {
  sendActionsForControlEvents(UIControlEventTouchCancel);
}
