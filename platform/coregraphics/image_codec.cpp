#include "platform/coregraphics/image_codec.h"

#include "platform/coregraphics/cairo_support.h"
#include "platform/coregraphics/exif_orientation.h"
#include "platform/coregraphics/image_decoders.h"

namespace {

/// A few bytes of file can announce any size; this is as much memory as a picture may ask for.
constexpr std::uint64_t kMaxPixels = 64ull << 20;

}  // namespace

bool isAcceptablePictureSize(std::uint32_t width, std::uint32_t height) {
  return width > 0 && height > 0 && width <= kMaxSurfaceSide && height <= kMaxSurfaceSide &&
         std::uint64_t{width} * height <= kMaxPixels;
}

CGImageRef decodeImage(const NSData& data, int* exifOrientation) {
  int orientation = kExifOrientationUp;
  CGImageRef image;
  if (isPng(data)) {
    image = decodePng(data);
  } else if (isJpeg(data)) {
    image = decodeJpeg(data, orientation);
  }
  if (exifOrientation) *exifOrientation = image ? orientation : kExifOrientationUp;
  return image;
}
