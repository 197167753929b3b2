#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/coregraphics/cg_geometry.h"

enum class CGColorSpace { DeviceRGB, DeviceGray };

/// Where alpha and the channels lie in a pixel, with the published values.
enum CGBitmapInfo : std::uint32_t {
  kCGImageAlphaNone = 0,
  kCGImageAlphaPremultipliedLast = 1,  ///< Bytes R, G, B, A.
  kCGImageAlphaNoneSkipLast = 5,       ///< Bytes R, G, B, unused.
  /// Bytes B, G, R, A: what the screen and the decoders produce.
  kCGImageAlphaPremultipliedFirstLittle = 2 | (2 << 12),
  /// Bytes B, G, R, unused: opaque.
  kCGImageAlphaNoneSkipFirstLittle = 6 | (2 << 12),
};

/// How the bytes of a picture are laid out.
struct CGPixelFormat {
  std::size_t bitsPerComponent = 8;
  std::size_t bitsPerPixel = 32;
  CGColorSpace colorSpace = CGColorSpace::DeviceRGB;
  CGBitmapInfo bitmapInfo = kCGImageAlphaPremultipliedFirstLittle;
  bool operator==(const CGPixelFormat&) const = default;

  std::size_t bytesPerPixel() const { return bitsPerPixel / 8; }
};

class CGImage;
/// Pictures are immutable and shared; a null reference is no picture.
using CGImageRef = std::shared_ptr<const CGImage>;

/// An immutable raster picture. A cropped picture shares the pixels of the one that it was cut from.
class CGImage {
 public:
  using Pixels = std::shared_ptr<const std::vector<std::uint8_t>>;

  /// A picture over `pixels` from byte `offset` on, rows `bytesPerRow` apart. Null when width or height is
  /// not positive, the format is none of the supported ones (8-bit grey without alpha, 32-bit RGB in the
  /// layouts of CGBitmapInfo) or the bytes do not suffice.
  static CGImageRef create(int width, int height, CGPixelFormat format, std::size_t bytesPerRow,
                           Pixels pixels, std::size_t offset = 0);
  static bool isSupported(const CGPixelFormat& format);

  int width() const { return width_; }    ///< In pixels.
  int height() const { return height_; }  ///< In pixels.
  const CGPixelFormat& format() const { return format_; }
  std::size_t bytesPerRow() const { return bytesPerRow_; }
  const std::uint8_t* row(int y) const { return pixels_->data() + offset_ + std::size_t(y) * bytesPerRow_; }

  bool isOpaque() const;
  /// Whether the pixels are words as the screen has them: 0xAARRGGBB, premultiplied or, opaque, with anything
  /// in place of alpha.
  bool isInScreenLayout() const;

  /// The same pixels as a 32-bit picture in screen layout; `self` when it is one already.
  static CGImageRef inScreenFormat(const CGImageRef& self);

  /// `self` or, where all of its pixels happen to be opaque, the same pixels as an opaque picture.
  static CGImageRef withoutNeedlessAlpha(const CGImageRef& self);

  /// Whether both have the same size, format and pixels.
  static bool samePixels(const CGImage& one, const CGImage& other);

  friend CGImageRef CGImageCreateWithImageInRect(const CGImageRef& image, CGRect rect);

 private:
  CGImage(int width, int height, CGPixelFormat format, std::size_t bytesPerRow, Pixels pixels,
          std::size_t offset);

  int width_, height_;
  CGPixelFormat format_;
  std::size_t bytesPerRow_;
  Pixels pixels_;
  std::size_t offset_;
};

/// The part of `image` inside `rect` (pixels), which is first widened outward to whole pixels and then cut to
/// the picture. Copies no pixel. Null for a null picture, an empty intersection or a rectangle that is not
/// finite.
CGImageRef CGImageCreateWithImageInRect(const CGImageRef& image, CGRect rect);

std::size_t CGImageGetWidth(const CGImageRef& image);  ///< 0 for null; so are the next two.
std::size_t CGImageGetHeight(const CGImageRef& image);
std::size_t CGImageGetBitsPerPixel(const CGImageRef& image);
/// A copy of the picture's bytes: height rows, bytesPerRow apart, the last one only as long as its pixels.
std::vector<std::uint8_t> CGDataProviderCopyData(const CGImageRef& image);
