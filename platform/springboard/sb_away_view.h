#pragma once

#include "platform/runtime/message.h"
#include "platform/uikit/ui_view.h"

/// The lock screen's view.
class SBAwayView : public UIView {
  OBJC_CLASS(SBAwayView, UIView)
 public:
  /// This view, or null when it could not be made. Not usable before.
  SBAwayView* initWithFrame(CGRect frame) { return send<SBAwayView*>(*this, "initWithFrame:", frame); }
  /// The Home button has been pressed while the lock screen is up.
  void handleMenuButtonTap() { send<void>(*this, "handleMenuButtonTap"); }
  void didMoveToWindow() override { send<void>(*this, "didMoveToWindow"); }
};
