#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/uikit/ui_window.h"

/// A modal message with buttons, in a window of its own at the alert level. Any button dismisses it.
class UIAlertView : public UIView {
  OBJC_CLASS(UIAlertView, UIView)
 public:
  /// `delegate` is carried, not called. An empty cancel title means no cancel button.
  UIAlertView(std::string title, std::string message, NSObject* delegate, std::string cancelButtonTitle,
              std::vector<std::string> otherButtonTitles);

  /// Puts it on screen, where it stays, and stays alive, until dismissed. Traced as "alert" {title, message}.
  void show();
  void dismiss();
  bool isVisible() const { return alertWindow_ != nullptr; }

  const std::string& title() const { return title_; }
  const std::string& message() const { return message_; }
  /// The cancel button first.
  const std::vector<std::string>& buttonTitles() const { return buttonTitles_; }
  NSObject* delegate() const { return delegate_; }

  /// The alerts on screen, oldest first.
  static const std::vector<std::shared_ptr<UIAlertView>>& visibleAlerts();

  bool drawsContent() const override { return true; }
  void drawLayer(CGContext& context) const override;

 private:
  /// A line of wrapped text and where it stands.
  struct Line {
    std::string text;
    CGRect rect;
    CGFloat fontSize;
    bool bold;
  };

  void build();
  CGFloat addButtons(CGFloat y);  // Returns where the box ends.

  std::vector<Line> lines_;
  std::string title_, message_;
  std::vector<std::string> buttonTitles_;
  NSObject* delegate_;                     // Its maker owns it. May be null.
  std::shared_ptr<UIWindow> alertWindow_;  // Exists while on screen.
};
