#include "platform/coregraphics/image_codec.h"

#include "platform/coregraphics/exif_orientation.h"
#include "platform/coregraphics/image_decoders.h"

CGImageRef decodeImage(const NSData& data, int* exifOrientation) {
  int orientation = exifOrientationUp;
  CGImageRef image;
  if (isPng(data)) {
    image = decodePng(data);
  } else if (isJpeg(data)) {
    image = decodeJpeg(data, orientation);
  }
  if (exifOrientation) *exifOrientation = image ? orientation : exifOrientationUp;
  return image;
}
