#include "platform/uikit/touch_dispatcher.h"

#include <algorithm>
#include <string>

#include "platform/uikit/ui_window.h"

namespace {

/// Tells the touch's view of its new phase, as part of an event of all fingers.
void deliver(const UITouchSet& alone, UIEvent* event) {
  const UITouch& touch = *alone.front();
  UIView* view = touch.view();
  if (!view) return;
  switch (touch.phase()) {
    case UITouchPhase::Began:
      return view->touchesBegan(alone, event);
    case UITouchPhase::Moved:
      return view->touchesMoved(alone, event);
    case UITouchPhase::Ended:
      return view->touchesEnded(alone, event);
    case UITouchPhase::Cancelled:
      return view->touchesCancelled(alone, event);
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
  event_->setTimestamp(timestamp);
  UIView* hit = UIWindow::hitTestScreen(location, event_.get());
  // No view takes several touches at a time, as is the default: the first one has it to itself.
  const bool taken = std::ranges::any_of(
      fingers_, [hit](const auto& finger) { return finger.second->front()->view() == hit; });
  std::shared_ptr<UIView> view;
  if (hit && !taken) view = std::static_pointer_cast<UIView>(hit->shared_from_this());
  auto touch = std::make_shared<UITouch>(location, timestamp, std::move(view));
  fingers_.emplace(finger, std::make_shared<const UITouchSet>(1, std::move(touch)));
  gatherTouches();
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

CGPoint TouchDispatcher::location(int finger) const {
  return fingers_.at(finger)->front()->locationInView(nullptr);
}

void TouchDispatcher::requireDown(int finger, const char* action) const {
  if (!isDown(finger)) throw IncoherentTouch(std::string(action) + " before down");
}

void TouchDispatcher::change(int finger, UITouchPhase phase, CGPoint location, CFTimeInterval timestamp) {
  for (const auto& [other, alone] : fingers_) {
    UITouch& touch = *alone->front();
    touch.update(UITouchPhase::Stationary, touch.locationInView(nullptr), touch.timestamp());
  }
  const Finger alone = fingers_.at(finger);
  alone->front()->update(phase, location, timestamp);
  event_->setTimestamp(timestamp);
  // Whatever the view does about it, the finger has gone; the event it is told of still has it.
  if (phase == UITouchPhase::Ended || phase == UITouchPhase::Cancelled) fingers_.erase(finger);
  deliver(*alone, event_.get());
  if (!isDown(finger)) gatherTouches();
}

void TouchDispatcher::gatherTouches() {
  UITouchSet touches;
  for (const auto& [finger, alone] : fingers_) touches.push_back(alone->front());
  event_->setTouches(std::move(touches));
}
