#pragma once

#include "platform/uikit/ui_touch.h"

/// What happens to the fingers. One event goes along with all of them, and says what it says until their next
/// change.
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
