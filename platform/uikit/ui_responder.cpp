#include "platform/uikit/ui_responder.h"

void UIResponder::touchesBegan(const UITouchSet& touches, UIEvent* event) {
  if (UIResponder* next = nextResponder()) next->touchesBegan(touches, event);
}

void UIResponder::touchesMoved(const UITouchSet& touches, UIEvent* event) {
  if (UIResponder* next = nextResponder()) next->touchesMoved(touches, event);
}

void UIResponder::touchesEnded(const UITouchSet& touches, UIEvent* event) {
  if (UIResponder* next = nextResponder()) next->touchesEnded(touches, event);
}

void UIResponder::touchesCancelled(const UITouchSet& touches, UIEvent* event) {
  if (UIResponder* next = nextResponder()) next->touchesCancelled(touches, event);
}
