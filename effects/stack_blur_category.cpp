#include "effects/stack_blur.h"

namespace vistrel {
namespace {

using ImageRef = std::shared_ptr<UIImage>;

ImageRef sendStackBlur(UIImage& self, std::uint32_t radius) {
  return stackBlur(std::static_pointer_cast<UIImage>(self.shared_from_this()), radius);
}

ImageRef sendNormalize(UIImage& self) { return normalize(self); }

}  // namespace

void registerStackBlur() {
  Class& image = UIImage::objcClass();
  image.addMethod("stackBlur:", sendStackBlur);
  image.addMethod("normalize", sendNormalize);
  image.addClassMethod("applyStackBlurToBuffer:width:height:withRadius:", applyStackBlurToBuffer);
}

}  // namespace vistrel
