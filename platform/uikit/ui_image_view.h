#pragma once

#include "platform/uikit/ui_image.h"
#include "platform/uikit/ui_view.h"

/// Shows a picture stretched over its bounds. Takes no touches unless told to.
class UIImageView : public UIView {
  OBJC_CLASS(UIImageView, UIView)
 public:
  UIImageView() : UIImageView(CGRectZero) {}
  explicit UIImageView(CGRect frame);

  const std::shared_ptr<UIImage>& image() const { return image_; }  ///< Null for none.
  void setImage(std::shared_ptr<UIImage> image);

 private:
  std::shared_ptr<UIImage> image_;
};
