#include "platform/uikit/ui_color.h"

#include "platform/uikit/ui_image.h"

UIColor UIColor::colorWithRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  UIColor color;
  color.color_ = {red, green, blue, alpha};
  return color;
}

UIColor UIColor::colorWithPatternImage(const std::shared_ptr<UIImage>& image) {
  UIColor color;
  color.pattern_ = image;
  return color;
}
