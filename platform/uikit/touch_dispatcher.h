#pragma once

#include <map>
#include <memory>
#include <stdexcept>

#include "platform/uikit/ui_event.h"

/// Thrown for a sequence that no finger makes: a move or lift without a landing, a second landing.
class IncoherentTouch : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

/// Brings fingers to views. The host reports each finger by a number of its choice; screen points, y
/// downward.
class TouchDispatcher {
 public:
  static TouchDispatcher& shared();

  /// The finger lands: the view under it is found by hit testing and keeps the touch. Where no view is hit,
  /// or the view has a finger on it already, the finger is tracked and reaches nobody.
  void down(int finger, CGPoint location, CFTimeInterval timestamp);
  void move(int finger, CGPoint location, CFTimeInterval timestamp);
  void up(int finger, CGPoint location, CFTimeInterval timestamp);
  void cancel(int finger, CFTimeInterval timestamp);
  bool isDown(int finger) const { return fingers_.contains(finger); }
  /// Where the finger was last seen; call only while it is down.
  CGPoint location(int finger) const;

 private:
  /// A finger's touch, alone in a set, as views are told of it; held while they are, for they may let it go.
  using Finger = std::shared_ptr<const UITouchSet>;

  void requireDown(int finger, const char* action) const;
  void change(int finger, UITouchPhase phase, CGPoint location, CFTimeInterval timestamp);
  void gatherTouches();

  // Moves come in great numbers: these are made when a finger lands, and serve for all of its moves.
  std::map<int, Finger> fingers_;
  std::shared_ptr<UIEvent> event_ = std::make_shared<UIEvent>();
};
