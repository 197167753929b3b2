#include "platform/coregraphics/image_codec.h"

#include "platform/coregraphics/exif_orientation.h"
#include "platform/coregraphics/image_decoders.h"

namespace {

/// Bytes. A screen's picture that does not compress at all has half of them.
constexpr std::size_t largestCompressed = 32 << 20;

}  // namespace

CGImageRef decodeImage(const NSData& data, int* exifOrientation, std::uint32_t largestSide) {
  int orientation = exifOrientationUp;
  CGImageRef image;
  const bool isWorthReading = data.size() <= largestCompressed;
  if (isWorthReading && isPng(data)) {
    image = decodePng(data, largestSide);
  } else if (isWorthReading && isJpeg(data)) {
    image = decodeJpeg(data, orientation, largestSide);
  }
  if (exifOrientation) *exifOrientation = image ? orientation : exifOrientationUp;
  return image;
}
