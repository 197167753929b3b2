#include "platform/uikit/touch_dispatcher.h"

#include <algorithm>
#include <string>

#include "platform/uikit/ui_window.h"

namespace {

/// Tells the touch's view of its new phase, as part of an event of all fingers.
void deliver(const std::shared_ptr<UITouch>& touch, const UITouchSet& allTouches) {
  UIView* view = touch->view();
  if (!view) return;
  auto event = std::make_shared<UIEvent>(touch->timestamp(), allTouches);
  switch (touch->phase()) {
    case UITouchPhase::Began:
      return view->touchesBegan({touch}, event.get());
    case UITouchPhase::Moved:
      return view->touchesMoved({touch}, event.get());
    case UITouchPhase::Ended:
      return view->touchesEnded({touch}, event.get());
    case UITouchPhase::Cancelled:
      return view->touchesCancelled({touch}, event.get());
    case UITouchPhase::Stationary:
      return;
  }
}

}  // namespace

TouchDispatcher& TouchDispatcher::shared() {
  static TouchDispatcher dispatcher;
  return dispatcher;
}

void TouchDispatcher::down(int finger, CGPoint location, CFTimeInterval timestamp) {
  if (isDown(finger)) throw IncoherentTouch("down while the finger is down already");
  auto event = std::make_shared<UIEvent>(timestamp, allTouches());
  UIView* hit = UIWindow::hitTestScreen(location, event.get());
  // No view takes several touches at a time, as is the default: the first one has it to itself.
  const bool taken =
      std::ranges::any_of(touches_, [hit](const auto& entry) { return entry.second->view() == hit; });
  std::shared_ptr<UIView> view;
  if (hit && !taken) view = std::static_pointer_cast<UIView>(hit->shared_from_this());
  touches_.emplace(finger, std::make_shared<UITouch>(location, timestamp, std::move(view)));
  change(finger, UITouchPhase::Began, location, timestamp);
}

void TouchDispatcher::move(int finger, CGPoint location, CFTimeInterval timestamp) {
  requireDown(finger, "move");
  change(finger, UITouchPhase::Moved, location, timestamp);
}

void TouchDispatcher::up(int finger, CGPoint location, CFTimeInterval timestamp) {
  requireDown(finger, "up");
  change(finger, UITouchPhase::Ended, location, timestamp);
}

void TouchDispatcher::cancel(int finger, CFTimeInterval timestamp) {
  requireDown(finger, "cancel");
  change(finger, UITouchPhase::Cancelled, location(finger), timestamp);
}

CGPoint TouchDispatcher::location(int finger) const { return touches_.at(finger)->locationInView(nullptr); }

void TouchDispatcher::requireDown(int finger, const char* action) const {
  if (!isDown(finger)) throw IncoherentTouch(std::string(action) + " before down");
}

UITouchSet TouchDispatcher::allTouches() const {
  UITouchSet all;
  for (const auto& [finger, touch] : touches_) all.push_back(touch);
  return all;
}

void TouchDispatcher::change(int finger, UITouchPhase phase, CGPoint location, CFTimeInterval timestamp) {
  const UITouchSet all = allTouches();
  for (const auto& touch : all) {
    touch->update(UITouchPhase::Stationary, touch->locationInView(nullptr), touch->timestamp());
  }
  const auto touch = touches_.at(finger);
  touch->update(phase, location, timestamp);
  // Whatever the view does about it, the finger has gone.
  if (phase == UITouchPhase::Ended || phase == UITouchPhase::Cancelled) touches_.erase(finger);
  deliver(touch, all);
}
