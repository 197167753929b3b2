#pragma once

#include <string>

#include "platform/runtime/message.h"
#include "platform/uikit/ui_window.h"

/// The bar with carrier, time and battery. Its construction and its window go through the method table:
/// "initWithFrame:" is `UIStatusBar*(UIStatusBar&, CGRect)`, "statusBarWindow" is `UIWindow*(UIStatusBar&)`.
class UIStatusBar : public UIView {
  OBJC_CLASS(UIStatusBar, UIView)
 public:
  UIStatusBar();  ///< Not usable before initWithFrame.

  /// This bar, or null when it could not be made.
  UIStatusBar* initWithFrame(CGRect frame) { return send<UIStatusBar*>(*this, "initWithFrame:", frame); }
  /// The window that carries status bars.
  UIWindow* statusBarWindow() { return send<UIWindow*>(*this, "statusBarWindow"); }

  /// What "statusBarWindow" answers by itself: one window along the screen's top, made and shown on first
  /// request. It lets touches through.
  static UIWindow& sharedStatusBarWindow();
  static constexpr CGFloat height = 20;  ///< In points.

  void setTimeText(std::string text);
  bool drawsContent() const override { return true; }
  void drawLayer(CGContext& context) const override;

 private:
  std::string timeText_;
};
