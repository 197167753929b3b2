#include "effects/stack_blur.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "effects/stack_blur_lines.h"
#include "effects/stack_blur_vectors.h"
#include "platform/coregraphics/cg_bitmap_context.h"

namespace vistrel {
namespace {

constexpr std::size_t bytesPerPixel = 4;
constexpr std::size_t bitsPerPixel = 32;
constexpr CGFloat intRange = 0x1p31f;

/// The picture's bytes with rows of exactly 4 x width bytes.
std::vector<std::uint8_t> packedRows(const CGImage& image) {
  const std::size_t bytesPerRow = std::size_t(image.width()) * bytesPerPixel;
  std::vector<std::uint8_t> bytes;
  bytes.reserve(bytesPerRow * std::size_t(image.height()));
  for (int y = 0; y < image.height(); ++y)
    bytes.insert(bytes.end(), image.row(y), image.row(y) + bytesPerRow);
  return bytes;
}

/// Points as a whole number, truncated; 0, which no context can have, for what no int can hold.
int wholePoints(CGFloat points) { return points > -intRange && points < intRange ? int(points) : 0; }

}  // namespace

std::shared_ptr<UIImage> stackBlur(const std::shared_ptr<UIImage>& image, std::uint32_t radius) {
  if (!image || radius == 0 || image->size() == CGSizeZero) return image;
  CGImageRef source = image->cgImage();
  if (CGImageGetBitsPerPixel(source) != bitsPerPixel) {
    const std::shared_ptr<UIImage> normalized = normalize(*image);
    if (!normalized) return image;
    source = normalized->cgImage();
  }
  std::vector<std::uint8_t> bytes = packedRows(*source);
  const auto context =
      CGBitmapContext::create(bytes.data(), source->width(), source->height(),
                              std::size_t(source->width()) * bytesPerPixel, source->format());
  if (!context) return image;
  applyStackBlurToBuffer(bytes.data(), source->width(), source->height(), radius);
  return UIImage::imageWithCGImage(context->createImage());
}

std::shared_ptr<UIImage> normalize(const UIImage& image) {
  const int width = wholePoints(image.size().width);
  const int height = wholePoints(image.size().height);
  CGPixelFormat format;
  format.bitmapInfo = kCGImageAlphaPremultipliedLast;
  const auto context = CGBitmapContext::create(nullptr, width, height,
                                               std::size_t(std::max(width, 0)) * bytesPerPixel, format);
  if (!context) return nullptr;
  context->drawImage(image.cgImage(), CGRectMake(0, 0, CGFloat(width), CGFloat(height)));
  return UIImage::imageWithCGImage(context->createImage());
}

void applyStackBlurToBuffer(std::uint8_t* buffer, std::int32_t width, std::int32_t height,
                            std::uint32_t radius) {
  if (!buffer || width < 1 || height < 1 || radius == 0) return;
  const auto columns = std::uint32_t(width), rows = std::uint32_t(height);
  if (radius <= maxVectorRadius && blurInVectors(buffer, columns, rows, radius)) return;
  blurInLines(buffer, columns, rows, radius);
}

}  // namespace vistrel
