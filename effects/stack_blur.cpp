#include "effects/stack_blur.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "platform/coregraphics/cg_bitmap_context.h"

namespace vistrel {
namespace {

constexpr std::size_t bytesPerPixel = 4;
constexpr int channels = 3;  // The bytes of a pixel that are blurred.
constexpr std::size_t bitsPerPixel = 32;
constexpr CGFloat intRange = 0x1p31f;

// The weighted sum of one channel is at most 255 (r + 1)^2. Radii that anyone looks at keep it within 32
// bits; for the largest, 2^32 - 1, it takes 72.
using NarrowSum = std::uint32_t;
__extension__ using WideSum = unsigned __int128;

/// Division of weighted sums by the sum of the weights, (r + 1)^2, rounding down.
template <class Sum>
class Mean {
 public:
  explicit Mean(std::uint32_t radius) : divisor_((Sum{radius} + 1) * (Sum{radius} + 1)) {}
  std::uint8_t operator()(Sum sum) const { return std::uint8_t(sum / divisor_); }

 private:
  Sum divisor_;
};

/// Multiplies by a reciprocal in place of dividing, with the same result: for d = (r + 1)^2 the reciprocal is
/// 2^s / d + e with 0 <= e < 1, the product sum 2^s / d + e sum. Its integer part above bit s is exact as
/// long as e sum < 2^s / d, for which 255 d^2 <= 2^s is enough; and it stays below 256 x 2^s = 2^64.
template <>
class Mean<NarrowSum> {
 public:
  /// Up to here both that holds and the sums fit their 32 bits.
  static constexpr std::uint32_t maxRadius = 4095;

  explicit Mean(std::uint32_t radius) {
    const std::uint64_t divisor = std::uint64_t{radius + 1} * (radius + 1);
    reciprocal_ = ((std::uint64_t{1} << shift) + divisor - 1) / divisor;
  }
  std::uint8_t operator()(NarrowSum sum) const { return std::uint8_t(sum * reciprocal_ >> shift); }

 private:
  static constexpr int shift = 56;
  std::uint64_t reciprocal_;
};

/// 1 + 2 + ... + n.
template <class Sum>
Sum triangular(Sum n) {
  return n % 2 == 0 ? n / 2 * (n + 1) : (n + 1) / 2 * n;
}

/// The window of one channel around the pixel that is at hand, at first pixel 0.
template <class Sum>
class Window {
 public:
  Window() = default;
  /// `channel` points to the channel's byte of pixel 0; the line has pixels up to `last`, `step` bytes apart.
  Window(const std::uint8_t* channel, std::size_t step, std::uint32_t last, std::uint32_t radius) {
    const Sum top = Sum{radius} + 1;  // The weight of the pixel at hand.
    const std::uint32_t inside = std::min(radius, last);
    const Sum beyond = radius - inside;  // Places past the end of the line, filled with its last pixel.
    trailing_ = top * channel[0];        // Pixel 0, and all the places before the line.
    weighted_ = triangular(top) * channel[0];
    for (std::uint32_t i = 1; i <= inside; ++i) {
      const Sum value = channel[i * step];
      leading_ += value;
      weighted_ += (top - i) * value;
    }
    leading_ += beyond * channel[last * step];
    weighted_ += triangular(beyond) * channel[last * step];
  }

  Sum weighted() const { return weighted_; }

  /// Moves on by a pixel, to `next`; `leaving` is the one that drops out behind, `entering` the one that
  /// comes in.
  void slide(std::uint8_t leaving, std::uint8_t next, std::uint8_t entering) {
    weighted_ -= trailing_;
    trailing_ += next;
    trailing_ -= leaving;
    leading_ += entering;
    weighted_ += leading_;
    leading_ -= next;
  }

 private:
  Sum weighted_ = 0;
  Sum trailing_ = 0;  // The pixel at hand and those behind it, unweighted.
  Sum leading_ = 0;   // Those ahead of it, unweighted.
};

/// Blurs one row or column: `count` pixels, `step` bytes apart, from `from` to the same places of `to`.
template <class Sum>
void blurLine(const std::uint8_t* from, std::uint8_t* to, std::size_t step, std::uint32_t count,
              std::uint32_t radius, Mean<Sum> mean) {
  const std::uint32_t last = count - 1;
  Window<Sum> windows[channels];
  for (int k = 0; k < channels; ++k) windows[k] = Window<Sum>(from + k, step, last, radius);
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint8_t* leaving = from + (i > radius ? i - radius : 0) * step;
    const std::uint8_t* next = from + std::min(i + 1, last) * step;
    const std::uint8_t* entering = from + (last - i > radius ? i + radius + 1 : last) * step;
    for (int k = 0; k < channels; ++k) {
      to[i * step + k] = mean(windows[k].weighted());
      windows[k].slide(leaving[k], next[k], entering[k]);
    }
  }
}

template <class Sum>
void blurBuffer(std::uint8_t* buffer, std::uint32_t width, std::uint32_t height, std::uint32_t radius) {
  const Mean<Sum> mean(radius);
  const std::size_t bytesPerRow = width * bytesPerPixel;
  std::vector<std::uint8_t> blurredRows(bytesPerRow * height);
  for (std::uint32_t y = 0; y < height; ++y) {
    blurLine(buffer + y * bytesPerRow, blurredRows.data() + y * bytesPerRow, bytesPerPixel, width, radius,
             mean);
  }
  for (std::uint32_t x = 0; x < width; ++x) {
    const std::size_t column = x * bytesPerPixel;
    blurLine(blurredRows.data() + column, buffer + column, bytesPerRow, height, radius, mean);
  }
}

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
  if (!buffer || width < 1 || height < 1) return;
  const auto blur = radius <= Mean<NarrowSum>::maxRadius ? blurBuffer<NarrowSum> : blurBuffer<WideSum>;
  blur(buffer, std::uint32_t(width), std::uint32_t(height), radius);
}

}  // namespace vistrel
