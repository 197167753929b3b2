#include "platform/coregraphics/cg_image.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "platform/coregraphics/pixel_format.h"

namespace {

constexpr CGPixelFormat gray{8, 8, CGColorSpace::DeviceGray, kCGImageAlphaNone};

std::size_t bytesInRow(int width, const CGPixelFormat& format) {
  return std::size_t(width) * format.bytesPerPixel();
}

/// True when `available` bytes hold `height` rows, the last one only as long as its pixels.
bool suffices(std::size_t available, std::size_t rowBytes, std::size_t bytesPerRow, int height) {
  if (bytesPerRow < rowBytes || available < rowBytes) return false;
  const std::size_t fullRows = std::size_t(height) - 1;
  // Divided rather than multiplied: the product may not fit.
  return fullRows == 0 || (available - rowBytes) / fullRows >= bytesPerRow;
}

/// A whole number of pixels as an index from 0 to `limit`, whatever its size.
int pixelIndex(CGFloat whole, int limit) {
  if (!(whole > 0)) return 0;
  return whole >= CGFloat(limit) ? limit : int(whole);
}

/// The whole pixels, out of `limit`, that the stretch from `origin` on touches, wherever its length points
/// to.
struct PixelRange {
  int begin, end;
};
PixelRange pixelRange(CGFloat origin, CGFloat length, int limit) {
  const auto [low, high] = std::minmax({origin, origin + length});
  return {pixelIndex(std::floor(low), limit), pixelIndex(std::ceil(high), limit)};
}

bool isFinite(CGRect rect) {
  return std::isfinite(rect.origin.x) && std::isfinite(rect.origin.y) && std::isfinite(rect.size.width) &&
         std::isfinite(rect.size.height);
}

}  // namespace

CGImage::CGImage(int width, int height, CGPixelFormat format, std::size_t bytesPerRow, Pixels pixels,
                 std::size_t offset)
    : width_(width),
      height_(height),
      format_(format),
      bytesPerRow_(bytesPerRow),
      pixels_(std::move(pixels)),
      offset_(offset) {}

bool CGImage::isSupported(const CGPixelFormat& format) {
  if (format == gray) return true;
  if (format.bitsPerComponent != 8 || format.bitsPerPixel != 32 ||
      format.colorSpace != CGColorSpace::DeviceRGB) {
    return false;
  }
  switch (format.bitmapInfo) {
    case kCGImageAlphaPremultipliedLast:
    case kCGImageAlphaNoneSkipLast:
    case kCGImageAlphaPremultipliedFirstLittle:
    case kCGImageAlphaNoneSkipFirstLittle:
      return true;
    default:
      return false;
  }
}

CGImageRef CGImage::create(int width, int height, CGPixelFormat format, std::size_t bytesPerRow,
                           Pixels pixels, std::size_t offset) {
  if (width <= 0 || height <= 0 || !isSupported(format) || !pixels || offset > pixels->size()) return nullptr;
  if (!suffices(pixels->size() - offset, bytesInRow(width, format), bytesPerRow, height)) return nullptr;
  return CGImageRef(new CGImage(width, height, format, bytesPerRow, std::move(pixels), offset));
}

bool CGImage::isOpaque() const { return !hasAlpha(format_); }

bool CGImage::isInScreenLayout() const { return isInScreenFormat(row(0), bytesPerRow_, format_); }

CGImageRef CGImage::inScreenFormat(const CGImageRef& self) {
  if (!self || self->isInScreenLayout()) return self;
  const CGPixelFormat screen = screenFormatFor(self->format_);
  const std::size_t bytesPerRow = bytesInRow(self->width_, screen);
  auto pixels = std::make_shared<std::vector<std::uint8_t>>(bytesPerRow * std::size_t(self->height_));
  for (int y = 0; y < self->height_; ++y) {
    convertPixels(self->row(y), self->format_, pixels->data() + std::size_t(y) * bytesPerRow, screen,
                  self->width_);
  }
  return create(self->width_, self->height_, screen, bytesPerRow, std::move(pixels));
}

CGImageRef CGImage::withoutNeedlessAlpha(const CGImageRef& self) {
  constexpr std::size_t alphaByte = 3;
  constexpr std::uint8_t opaque = 255;
  if (!self || self->format_.bitmapInfo != kCGImageAlphaPremultipliedFirstLittle) return self;
  for (int y = 0; y < self->height_; ++y) {
    const std::uint8_t* pixel = self->row(y);
    for (int x = 0; x < self->width_; ++x, pixel += self->format_.bytesPerPixel())
      if (pixel[alphaByte] != opaque) return self;
  }
  CGPixelFormat format = self->format_;
  format.bitmapInfo = kCGImageAlphaNoneSkipFirstLittle;
  return create(self->width_, self->height_, format, self->bytesPerRow_, self->pixels_, self->offset_);
}

bool CGImage::samePixels(const CGImage& one, const CGImage& other) {
  if (one.width_ != other.width_ || one.height_ != other.height_ || one.format_ != other.format_)
    return false;
  const std::size_t rowBytes = std::size_t(one.width_) * one.format_.bytesPerPixel();
  for (int y = 0; y < one.height_; ++y) {
    if (std::memcmp(one.row(y), other.row(y), rowBytes) != 0) return false;
  }
  return true;
}

CGImageRef CGImageCreateWithImageInRect(const CGImageRef& image, CGRect rect) {
  if (!image || !isFinite(rect)) return nullptr;
  const PixelRange columns = pixelRange(rect.origin.x, rect.size.width, image->width_);
  const PixelRange rows = pixelRange(rect.origin.y, rect.size.height, image->height_);
  const std::size_t offset = image->offset_ + std::size_t(rows.begin) * image->bytesPerRow_ +
                             bytesInRow(columns.begin, image->format_);
  return CGImage::create(columns.end - columns.begin, rows.end - rows.begin, image->format_,
                         image->bytesPerRow_, image->pixels_, offset);
}

std::size_t CGImageGetWidth(const CGImageRef& image) { return image ? std::size_t(image->width()) : 0; }
std::size_t CGImageGetHeight(const CGImageRef& image) { return image ? std::size_t(image->height()) : 0; }
std::size_t CGImageGetBitsPerPixel(const CGImageRef& image) {
  return image ? image->format().bitsPerPixel : 0;
}

std::vector<std::uint8_t> CGDataProviderCopyData(const CGImageRef& image) {
  if (!image) return {};
  const std::uint8_t* end = image->row(image->height() - 1) + bytesInRow(image->width(), image->format());
  return {image->row(0), end};
}
