#pragma once

#include "platform/uikit/ui_view.h"

/// The parts of the home screen that only show something.
namespace host {

/// A dot a page, the current one bright.
class PageDots : public UIView {
  OBJC_CLASS(SBIconListPageControl, UIView)
 public:
  PageDots(CGRect frame, int pages) : UIView(frame), pages_(pages) { setUserInteractionEnabled(false); }
  void setCurrent(int page);

  bool drawsContent() const override { return true; }
  void drawLayer(CGContext& context) const override;

 private:
  int pages_;
  int current_ = 0;
};

/// The shelf at the lower edge, on which the dock's icons stand.
class DockView : public UIView {
  OBJC_CLASS(SBDockView, UIView)
 public:
  explicit DockView(CGRect frame) : UIView(frame) {}
  bool drawsContent() const override { return true; }
  void drawLayer(CGContext& context) const override;
};

}  // namespace host
