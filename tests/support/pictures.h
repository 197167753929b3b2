#pragma once

#include <cstdint>
#include <cstdlib>
#include <ostream>
#include <random>
#include <vector>

#include "platform/coregraphics/cg_image.h"

/// Pictures for tests, and their pixels read back.

inline CGPixelFormat formatWith(CGBitmapInfo info) { return {8, 32, CGColorSpace::DeviceRGB, info}; }
inline constexpr CGPixelFormat grayFormat{8, 8, CGColorSpace::DeviceGray, kCGImageAlphaNone};

inline CGImageRef pictureOf(int width, int height, CGPixelFormat format, std::vector<std::uint8_t> bytes) {
  const std::size_t bytesPerRow = std::size_t(width) * format.bytesPerPixel();
  return CGImage::create(width, height, format, bytesPerRow,
                         std::make_shared<std::vector<std::uint8_t>>(bytes));
}

/// Opaque random pixels in screen layout.
inline CGImageRef noise(int width, int height) {
  std::mt19937 random(7);
  std::vector<std::uint8_t> bytes(std::size_t(width) * std::size_t(height) * 4);
  for (auto& byte : bytes) byte = std::uint8_t(random());
  return pictureOf(width, height, formatWith(kCGImageAlphaNoneSkipFirstLittle), bytes);
}

struct Color {
  int red, green, blue, alpha = 255;
  bool operator==(const Color&) const = default;
};
inline std::ostream& operator<<(std::ostream& out, const Color& c) {
  return out << '(' << c.red << ' ' << c.green << ' ' << c.blue << ' ' << c.alpha << ')';
}

/// A pixel as premultiplied colour, whatever the picture's format.
inline Color colorAt(const CGImageRef& image, int x, int y) {
  const CGImageRef screen = CGImage::inScreenFormat(image);
  const std::uint8_t* pixel = screen->row(y) + 4 * x;
  const bool opaque = screen->format().bitmapInfo == kCGImageAlphaNoneSkipFirstLittle;
  return {pixel[2], pixel[1], pixel[0], opaque ? 255 : pixel[3]};
}

/// How many pixels of two pictures in screen layout and of one size differ by more than `tolerance`, of 255,
/// in some colour.
inline int pixelsThatDiffer(const CGImage& one, const CGImage& other, int tolerance) {
  int count = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      const auto differs = [&](int k) {
        return std::abs(one.row(y)[4 * x + k] - other.row(y)[4 * x + k]) > tolerance;
      };
      count += differs(0) || differs(1) || differs(2);
    }
  }
  return count;
}
inline constexpr int rounding = 2;  // Of 255: what two ways to paint the same may differ by.
