#pragma once

#include <vector>

#include "platform/uikit/ui_view.h"

inline constexpr CGFloat UIWindowLevelNormal = 0;
inline constexpr CGFloat UIWindowLevelStatusBar = 1000;
inline constexpr CGFloat UIWindowLevelAlert = 2000;

/// A view at the root of the screen. A new window is hidden; windows lie in order of their levels, then in
/// the order in which they became visible.
class UIWindow : public UIView {
  OBJC_CLASS(UIWindow, UIView)
 public:
  explicit UIWindow(CGRect frame);
  ~UIWindow() override;

  CGFloat windowLevel() const { return level_; }
  /// A change is traced as "window-level" {class, level}.
  /// The window goes to the front of its new level. Setting the level that it has is nothing.
  void setWindowLevel(CGFloat level);
  /// A hidden window that is shown comes to the front of its level.
  void setHidden(bool hidden) override;
  /// Shown and at the front of its level, whether it was hidden or not.
  void makeKeyAndVisible();
  /// The window made key last of those that are visible.
  bool isKeyWindow() const;

  /// Every window that exists, hidden ones too, back to front. The windows are owned by their makers.
  static const std::vector<UIWindow*>& allWindows();

  /// The view of the frontmost window that a finger at `point` (screen) falls on, or null.
  static UIView* hitTestScreen(CGPoint point, UIEvent* event);

 private:
  CGFloat level_ = UIWindowLevelNormal;
};
