#include "platform/uikit/ui_button.h"

#include "platform/uikit/ui_drawing.h"

namespace {

constexpr CGFloat cornerRadius = 10;
constexpr CGFloat borderWidth = 1;
constexpr CGFloat titleFontSize = 15;
constexpr CGColor borderColor{0.67f, 0.67f, 0.67f, 1};
constexpr CGColor titleColor{0.20f, 0.31f, 0.52f, 1};

}  // namespace

void UIButton::setTitle(std::string title, UIControlState) {
  title_ = std::move(title);
  setNeedsDisplay();
}

void UIButton::drawLayer(CGContext& context) const {
  if (type_ == UIButtonType::RoundedRect) {
    context.fill(bounds(), opaqueWhite, cornerRadius);
    strokeRoundedRectangle(context, bounds(), cornerRadius, borderWidth, borderColor);
  }
  context.drawText(title_, bounds(),
                   {.fontSize = titleFontSize,
                    .bold = true,
                    .color = type_ == UIButtonType::RoundedRect ? titleColor : opaqueWhite,
                    .alignment = CGTextAlignment::Center});
}
