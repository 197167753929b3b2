#pragma once

#include "platform/uikit/ui_touch.h"

/// What happens to the fingers. There is one event for all that they ever do: what it says changes with the
/// next change of a finger.
class UIEvent : public NSObject {
  OBJC_CLASS(UIEvent, NSObject)
 public:
  CFTimeInterval timestamp() const { return timestamp_; }
  const UITouchSet& allTouches() const { return touches_; }

  // For the touch dispatcher.
  void setTimestamp(CFTimeInterval timestamp) { timestamp_ = timestamp; }
  void setTouches(UITouchSet touches) { touches_ = std::move(touches); }

 private:
  CFTimeInterval timestamp_ = 0;
  UITouchSet touches_;
};
