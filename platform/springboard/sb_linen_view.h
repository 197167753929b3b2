#pragma once

#include "platform/uikit/ui_view.h"

/// The dark woven texture that SpringBoard shows behind its sheets. A picture made for the view's size; it
/// stretches with the bounds while they animate, and a view without area keeps the one that it had.
class SBLinenView : public UIView {
  OBJC_CLASS(SBLinenView, UIView)
 public:
  explicit SBLinenView(CGRect frame) : UIView(frame) { SBLinenView::contentMayChange(); }

 protected:
  void contentMayChange() override;
};
