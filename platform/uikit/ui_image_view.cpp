#include "platform/uikit/ui_image_view.h"

UIImageView::UIImageView(CGRect frame) : UIView(frame) { setUserInteractionEnabled(false); }

void UIImageView::setImage(std::shared_ptr<UIImage> image) {
  image_ = std::move(image);
  layer().setContents(image_ ? image_->uprightCGImage() : nullptr);
}
