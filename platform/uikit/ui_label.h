#pragma once

#include <string>

#include "platform/uikit/ui_view.h"

enum class UITextAlignment { Left = 0, Center = 1, Right = 2 };

/// One line of text in the system font, centred vertically. Takes no touches.
class UILabel : public UIView {
  OBJC_CLASS(UILabel, UIView)
 public:
  explicit UILabel(CGRect frame);

  const std::string& text() const { return text_; }
  void setText(std::string text);
  void setTextColor(const UIColor& color);  ///< Black at first.
  void setTextAlignment(UITextAlignment alignment);
  void setFontSize(CGFloat points);  ///< 17 at first, the system's label size.
  void setBold(bool bold);

  bool drawsContent() const override { return !text_.empty(); }
  void drawLayer(CGContext& context) const override;

 protected:
  void contentMayChange() override { setNeedsDisplay(); }

 private:
  /// What changes nothing costs no drawing.
  template <class T>
  void change(T& field, T value) {
    if (field == value) return;
    field = std::move(value);
    setNeedsDisplay();
  }

  std::string text_;
  UIColor textColor_ = UIColor::blackColor();
  UITextAlignment alignment_ = UITextAlignment::Left;
  CGFloat fontSize_ = 17;
  bool bold_ = false;
};
