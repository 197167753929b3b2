#pragma once

#include <string>
#include <vector>

#include "platform/uikit/ui_view.h"

/// What can happen to a control; a bit each. Inside means within the control's bounds, without any slack
/// around them.
enum UIControlEvents : unsigned {
  UIControlEventTouchDown = 1 << 0,
  UIControlEventTouchUpInside = 1 << 6,
  UIControlEventTouchUpOutside = 1 << 7,
  UIControlEventTouchCancel = 1 << 8,
};

/// A view that turns touches into actions for its targets. It keeps its touches to itself.
class UIControl : public UIView {
  OBJC_CLASS(UIControl, UIView)
 public:
  explicit UIControl(CGRect frame) : UIView(frame) {}

  /// Sends `action` ("hide", or "openApp:", which gets the control) to `target` on each of `events`. The
  /// target is not retained: one that has gone gets nothing. The same target and action again only widens
  /// their events.
  void addTarget(NSObject& target, std::string_view action, unsigned events);
  void sendActionsForControlEvents(unsigned events);

  void touchesBegan(const UITouchSet& touches, UIEvent* event) override;
  void touchesMoved(const UITouchSet& touches, UIEvent* event) override;
  void touchesEnded(const UITouchSet& touches, UIEvent* event) override;
  void touchesCancelled(const UITouchSet& touches, UIEvent* event) override;

 private:
  struct TargetAction {
    std::weak_ptr<NSObject> target;
    std::string action;
    unsigned events;
  };
  std::vector<TargetAction> targets_;
};
