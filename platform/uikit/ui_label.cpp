#include "platform/uikit/ui_label.h"

namespace {

CGTextAlignment textAlignmentOf(UITextAlignment alignment) {
  switch (alignment) {
    case UITextAlignment::Center:
      return CGTextAlignment::Center;
    case UITextAlignment::Right:
      return CGTextAlignment::Right;
    case UITextAlignment::Left:
      break;
  }
  return CGTextAlignment::Left;
}

}  // namespace

UILabel::UILabel(CGRect frame) : UIView(frame) { setUserInteractionEnabled(false); }

void UILabel::setText(std::string text) { change(text_, std::move(text)); }

void UILabel::setTextColor(const UIColor& color) { change(textColor_, color); }

void UILabel::setTextAlignment(UITextAlignment alignment) { change(alignment_, alignment); }

void UILabel::setFontSize(CGFloat points) { change(fontSize_, points); }

void UILabel::setBold(bool bold) { change(bold_, bold); }

void UILabel::drawLayer(CGContext& context) const {
  context.drawText(text_, bounds(),
                   {.fontSize = fontSize_,
                    .bold = bold_,
                    .color = textColor_.cgColor(),
                    .alignment = textAlignmentOf(alignment_)});
}
