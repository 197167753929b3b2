#include "platform/coregraphics/cg_bitmap_context.h"

#include "platform/coregraphics/cairo_support.h"
#include "platform/coregraphics/pixel_format.h"

namespace {

/// No picture of the system comes near it; a wild size is refused rather than tried.
constexpr std::size_t maxOwnedBytes = std::size_t{1} << 28;

void drawOnto(const CairoSurfacePtr& surface, const CGImageRef& image, CGRect rect) {
  const CairoContextPtr cairo(cairo_create(surface.get()));
  drawImageInto(cairo.get(), image, rect);
}

}  // namespace

std::unique_ptr<CGBitmapContext> CGBitmapContext::create(std::uint8_t* data, int width, int height,
                                                         std::size_t bytesPerRow, CGPixelFormat format) {
  if (width <= 0 || height <= 0 || !CGImage::isSupported(format)) return nullptr;
  if (bytesPerRow / format.bytesPerPixel() < std::size_t(width)) return nullptr;
  std::unique_ptr<CGBitmapContext> context(new CGBitmapContext);
  if (!data) {
    const bool drawable = width <= maxSurfaceSide && height <= maxSurfaceSide;
    if (!drawable || bytesPerRow > maxOwnedBytes / std::size_t(height)) return nullptr;
    context->owned_.resize(bytesPerRow * std::size_t(height));
    data = context->owned_.data();
  }
  context->data_ = data;
  context->width_ = width;
  context->height_ = height;
  context->bytesPerRow_ = bytesPerRow;
  context->format_ = format;
  return context;
}

void CGBitmapContext::drawImage(const CGImageRef& image, CGRect rect) {
  if (isInScreenFormat(data_, bytesPerRow_, format_)) {
    drawOnto(wrapPixels(data_, width_, height_, bytesPerRow_, format_), image, rect);
    return;
  }
  // Cairo does not draw in this layout: there and back through one that it draws in.
  const CGPixelFormat screen = screenFormatFor(format_);
  const std::size_t screenRow = std::size_t(width_) * screen.bytesPerPixel();
  std::vector<std::uint8_t> pixels(screenRow * std::size_t(height_));
  for (int y = 0; y < height_; ++y) {
    convertPixels(data_ + std::size_t(y) * bytesPerRow_, format_, pixels.data() + std::size_t(y) * screenRow,
                  screen, width_);
  }
  drawOnto(wrapPixels(pixels.data(), width_, height_, screenRow, screen), image, rect);
  for (int y = 0; y < height_; ++y) {
    convertPixels(pixels.data() + std::size_t(y) * screenRow, screen, data_ + std::size_t(y) * bytesPerRow_,
                  format_, width_);
  }
}

CGImageRef CGBitmapContext::createImage() const {
  // The caller's last row may be no longer than its pixels.
  const std::size_t bytes =
      bytesPerRow_ * (std::size_t(height_) - 1) + std::size_t(width_) * format_.bytesPerPixel();
  auto pixels = std::make_shared<std::vector<std::uint8_t>>(data_, data_ + bytes);
  return CGImage::create(width_, height_, format_, bytesPerRow_, std::move(pixels));
}
