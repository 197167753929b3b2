#include "switcher/card_scroller.h"
#include "switcher/layout.h"
#include "switcher/shared_state.h"

namespace vistrel {
namespace {

/// The band of full width from `y` on, `height` points high; in device pixels.
CGRect bandRect(float y, float height) {
  float scale = deviceScale();
  return CGRectMake(0, scale * y, scale * screenWidth, scale * height);
}

}  // namespace

std::shared_ptr<UIImage> CardScroller::cropImage(const std::shared_ptr<UIImage>& image, CGRect rect) {
  if (!image) return nullptr;
  float scale = image->scale();
  if (scale > 1) {
    rect = CGRectMake(rect.origin.x * scale, rect.origin.y * scale, rect.size.width * scale,
                      rect.size.height * scale);
  }
  CGImageRef part = CGImageCreateWithImageInRect(image->cgImage(), rect);
  return UIImage::imageWithCGImage(part, scale, image->orientation());
}

std::shared_ptr<UIImage> CardScroller::topImage(const std::shared_ptr<UIImage>& image, float point) {
  return cropImage(image, bandRect(0, point));
}

std::shared_ptr<UIImage> CardScroller::bottomImage(const std::shared_ptr<UIImage>& image, float point) {
  // On a screen of scale 2 this reaches past the picture's end, where the crop ends it.
  float height = image ? image->size().height : 0;
  return cropImage(image, bandRect(point, height - point));
}

std::shared_ptr<UIImage> CardScroller::middleImage(const std::shared_ptr<UIImage>& image, float point) {
  return cropImage(image, bandRect(point, middleBandHeight));
}

std::shared_ptr<UIImage> CardScroller::topMiddleImage(const std::shared_ptr<UIImage>& image, float point) {
  return cropImage(image, bandRect(point, gapHalf));
}

std::shared_ptr<UIImage> CardScroller::bottomMiddleImage(const std::shared_ptr<UIImage>& image, float point) {
  return cropImage(image, bandRect(point, gapHalf));
}

}  // namespace vistrel
