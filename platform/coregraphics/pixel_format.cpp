#include "platform/coregraphics/pixel_format.h"

#include <algorithm>
#include <climits>

namespace {

constexpr std::uint8_t opaque = 255;
constexpr std::size_t wordBytes = 4;

bool isGray(const CGPixelFormat& format) { return format.colorSpace == CGColorSpace::DeviceGray; }

bool isScreenLayout(CGBitmapInfo info) {
  return info == kCGImageAlphaPremultipliedFirstLittle || info == kCGImageAlphaNoneSkipFirstLittle;
}

/// Where in a 32-bit pixel red and blue are; green is between them and the fourth byte last in every layout.
struct ColorBytes {
  std::size_t red, blue;
};
constexpr std::size_t greenByte = 1;
constexpr std::size_t fourthByte = 3;

ColorBytes colorBytes(const CGPixelFormat& format) {
  return isScreenLayout(format.bitmapInfo) ? ColorBytes{2, 0} : ColorBytes{0, 2};
}

/// Rec. 601 luma; the weights add up to 256.
std::uint8_t luma(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
  return std::uint8_t((77 * red + 150 * green + 29 * blue + 128) >> 8);
}

void convertGray(const std::uint8_t* from, std::uint8_t* to, int count) {
  for (; count > 0; --count, ++from, to += wordBytes) {
    to[0] = to[1] = to[2] = *from;
    to[fourthByte] = opaque;
  }
}

void convertToGray(const std::uint8_t* from, ColorBytes bytes, std::uint8_t* to, int count) {
  for (; count > 0; --count, from += wordBytes, ++to)
    *to = luma(from[bytes.red], from[greenByte], from[bytes.blue]);
}

}  // namespace

bool hasAlpha(const CGPixelFormat& format) {
  return format.bitmapInfo == kCGImageAlphaPremultipliedLast ||
         format.bitmapInfo == kCGImageAlphaPremultipliedFirstLittle;
}

CGPixelFormat screenFormatFor(const CGPixelFormat& format) {
  CGPixelFormat screen;
  screen.bitmapInfo =
      hasAlpha(format) ? kCGImageAlphaPremultipliedFirstLittle : kCGImageAlphaNoneSkipFirstLittle;
  return screen;
}

bool isInScreenFormat(const std::uint8_t* data, std::size_t bytesPerRow, const CGPixelFormat& format) {
  return isScreenLayout(format.bitmapInfo) && reinterpret_cast<std::uintptr_t>(data) % wordBytes == 0 &&
         bytesPerRow % wordBytes == 0 && bytesPerRow <= INT_MAX;
}

void convertPixels(const std::uint8_t* from, const CGPixelFormat& fromFormat, std::uint8_t* to,
                   const CGPixelFormat& toFormat, int count) {
  if (fromFormat == toFormat && (isGray(fromFormat) || hasAlpha(fromFormat))) {
    std::copy_n(from, std::size_t(count) * fromFormat.bytesPerPixel(), to);
  } else if (isGray(fromFormat)) {
    convertGray(from, to, count);
  } else if (isGray(toFormat)) {
    convertToGray(from, colorBytes(fromFormat), to, count);
  } else {
    const ColorBytes source = colorBytes(fromFormat);
    const ColorBytes target = colorBytes(toFormat);
    const bool keepsAlpha = hasAlpha(fromFormat) && hasAlpha(toFormat);
    for (; count > 0; --count, from += wordBytes, to += wordBytes) {
      to[target.red] = from[source.red];
      to[greenByte] = from[greenByte];
      to[target.blue] = from[source.blue];
      to[fourthByte] = keepsAlpha ? from[fourthByte] : opaque;
    }
  }
}
