#pragma once

#include <memory>
#include <vector>

#include "platform/coregraphics/cg_geometry.h"
#include "platform/foundation/run_loop.h"
#include "platform/runtime/ns_object.h"

class UIView;

enum class UITouchPhase { Began, Moved, Stationary, Ended, Cancelled };

/// One finger on the screen, from its landing to its lifting.
class UITouch : public NSObject {
  OBJC_CLASS(UITouch, NSObject)
 public:
  UITouch(CGPoint screenLocation, CFTimeInterval timestamp, std::shared_ptr<UIView> view)
      : screenLocation_(screenLocation), timestamp_(timestamp), view_(std::move(view)) {}

  UITouchPhase phase() const { return phase_; }
  CFTimeInterval timestamp() const { return timestamp_; }
  /// The view that the touch began on. It keeps the touch to the end, wherever it or the finger moves, and
  /// lives as long as the touch does.
  UIView* view() const { return view_.get(); }
  /// Where the finger is, in the coordinates that `view` has at this moment; null means the screen's.
  CGPoint locationInView(const UIView* view) const;

  /// For the touch dispatcher.
  void update(UITouchPhase phase, CGPoint screenLocation, CFTimeInterval timestamp) {
    phase_ = phase;
    screenLocation_ = screenLocation;
    timestamp_ = timestamp;
  }

 private:
  UITouchPhase phase_ = UITouchPhase::Began;
  CGPoint screenLocation_;
  CFTimeInterval timestamp_;
  std::shared_ptr<UIView> view_;
};

/// A set of touches; which one is "any" does not matter to whoever asks for any.
using UITouchSet = std::vector<std::shared_ptr<UITouch>>;

/// Any touch of the set, or null when it is empty.
inline UITouch* anyObject(const UITouchSet& touches) {
  return touches.empty() ? nullptr : touches.front().get();
}
