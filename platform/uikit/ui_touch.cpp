#include "platform/uikit/ui_touch.h"

#include "platform/uikit/ui_view.h"

CGPoint UITouch::locationInView(const UIView* view) const {
  return view ? view->convertPointFromScreen(screenLocation_) : screenLocation_;
}
