#pragma once

#include "platform/runtime/ns_object.h"
#include "platform/uikit/ui_event.h"

/// Whatever can take touches. What it does not handle goes on to the next responder. A null event is one that
/// was made up by a caller.
class UIResponder : public NSObject {
  OBJC_CLASS(UIResponder, NSObject)
 public:
  /// Where unhandled touches go: for a view its superview; null ends the chain.
  virtual UIResponder* nextResponder() const { return nullptr; }

  virtual void touchesBegan(const UITouchSet& touches, UIEvent* event);
  virtual void touchesMoved(const UITouchSet& touches, UIEvent* event);
  virtual void touchesEnded(const UITouchSet& touches, UIEvent* event);
  virtual void touchesCancelled(const UITouchSet& touches, UIEvent* event);
};
