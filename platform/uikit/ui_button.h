#pragma once

#include <memory>
#include <string>

#include "platform/uikit/ui_control.h"

enum class UIButtonType { Custom = 0, RoundedRect = 1 };
enum UIControlState : unsigned { UIControlStateNormal = 0 };

/// A button with a title. A custom one without a title shows nothing.
class UIButton : public UIControl {
  OBJC_CLASS(UIButton, UIControl)
 public:
  explicit UIButton(UIButtonType type) : UIControl(CGRectZero), type_(type) {}
  static std::shared_ptr<UIButton> buttonWithType(UIButtonType type) {
    return std::make_shared<UIButton>(type);
  }

  const std::string& title() const { return title_; }
  /// Only the normal state has a title here; empty means none.
  void setTitle(std::string title, UIControlState state);

  bool drawsContent() const override { return type_ == UIButtonType::RoundedRect || !title_.empty(); }
  void drawLayer(CGContext& context) const override;

 protected:
  void contentMayChange() override { setNeedsDisplay(); }

 private:
  UIButtonType type_;
  std::string title_;
};
