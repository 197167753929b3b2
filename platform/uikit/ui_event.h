#pragma once

#include "platform/uikit/ui_touch.h"

/// What happened to the fingers at one instant.
class UIEvent : public NSObject {
  OBJC_CLASS(UIEvent, NSObject)
 public:
  UIEvent(CFTimeInterval timestamp, UITouchSet touches)
      : timestamp_(timestamp), touches_(std::move(touches)) {}
  CFTimeInterval timestamp() const { return timestamp_; }
  const UITouchSet& allTouches() const { return touches_; }

 private:
  CFTimeInterval timestamp_;
  UITouchSet touches_;
};
