#include "platform/quartzcore/compositor.h"

#include <algorithm>
#include <utility>

#include "platform/quartzcore/plain_painter.h"
#include "platform/quartzcore/scene.h"
#include "platform/quartzcore/visible_paints.h"

Compositor::Compositor() : scene_(std::make_unique<Scene>()) {}

Compositor::~Compositor() = default;

CGImageRef Compositor::frame(const std::vector<const CALayer*>& backToFront, CGSize size, CGFloat scale,
                             CFTimeInterval time) {
  const int width = wholePixels(size.width, scale), height = wholePixels(size.height, scale);
  if (width == 0 || height == 0) return nullptr;
  const PixelBox screen{0, 0, width, height};
  const FrameMoment moment{scale, time};
  PixelRegion damage = scene_->update(backToFront, screen, moment);
  if (!picture_) damage = PixelRegion(screen);
  if (damage.empty()) return picture_;

  const CGPixelFormat format{.bitmapInfo = kCGImageAlphaNoneSkipFirstLittle};
  const std::size_t bytesPerRow = static_cast<std::size_t>(width) * format.bytesPerPixel();
  // Not held here any more, its pixels can be drawn on, unless somebody else does. Nor is there a picture to
  // keep, should anything throw before all of it is drawn.
  picture_ = nullptr;
  makeWritable(bytesPerRow * static_cast<std::size_t>(height), !damage.contains(screen));
  const Paint black{screen, screen, ColorPaint{opaqueBlackPixel}};
  std::vector<const Paint*> paints = scene_->paintsIn(damage);
  paints.insert(paints.begin(), &black);
  paintVisible({pixels_->data(), width, height}, paints, damage, moment);
  picture_ = CGImage::create(width, height, format, bytesPerRow, pixels_);
  return picture_;
}

/// Pictures are immutable: whoever holds the last one keeps its pixels.
void Compositor::makeWritable(std::size_t bytes, bool keepsContents) {
  const auto isFree = [&](const Buffer& buffer) {
    return buffer && buffer.use_count() == 1 && buffer->size() == bytes;
  };
  if (isFree(pixels_)) return;
  std::swap(pixels_, spare_);
  if (!isFree(pixels_)) pixels_ = std::make_shared<std::vector<std::uint8_t>>(bytes);
  if (keepsContents) std::ranges::copy(*spare_, pixels_->begin());
}
