#include "host/icon_view.h"

#include "platform/uikit/ui_label.h"

namespace host {
namespace {

constexpr CGFloat highlightedAlpha = 0.5f;

}  // namespace

IconView::IconView(CGRect frame, SBApplication& application, const HomeLayout& layout)
    : UIView(frame), layout_(layout), icon_(std::make_shared<SBApplicationIcon>(&application)) {}

void IconView::build() {
  const CGFloat width = bounds().size.width;
  const CGFloat side = layout_.iconSize;
  picture_ = std::make_shared<UIImageView>(CGRectMake((width - side) / 2, 0, side, side));
  picture_->setImage(icon_->getIconImage(SBApplicationIcon::HomeScreenVariant));
  addSubview(picture_);

  auto name = std::make_shared<UILabel>(CGRectMake(0, side, width, layout_.nameHeight));
  name->setText(icon_->application()->displayName());
  name->setTextColor(UIColor::whiteColor());
  name->setTextAlignment(UITextAlignment::Center);
  name->setFontSize(layout_.nameFontSize);
  name->setBold(true);
  addSubview(name);
}

void IconView::setHighlighted(bool highlighted) { picture_->setAlpha(highlighted ? highlightedAlpha : 1); }

}  // namespace host
