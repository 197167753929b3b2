#include "platform/quartzcore/pixel_rows.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "platform/quartzcore/shadow.h"

namespace {

constexpr int channels = 4;
constexpr std::uint8_t opaque = 255;

std::uint8_t alphaOf(Pixel pixel) { return std::uint8_t(pixel >> 24); }

// Channel by channel: the compiler makes vectors of 16-bit lanes of these.

/// `product` / 255, rounded to the nearest, for products of two 8-bit values.
std::uint16_t divided(std::uint16_t product) {
  const auto t = std::uint16_t(product + 128);
  return std::uint16_t(std::uint16_t(t + (t >> 8)) >> 8);
}

/// As many pixels as make a vector on every machine that we know.
constexpr int blockPixels = 8;
constexpr int blockBytes = blockPixels * channels;

/// A colour, over and over.
struct ColorBlock {
  explicit ColorBlock(Pixel color) {
    for (int i = 0; i < blockPixels; ++i) std::memcpy(bytes + i * channels, &color, channels);
  }
  std::uint8_t bytes[blockBytes];
};

/// Lays the colour over a block of opaque pixels.
void tint(std::uint8_t (&bytes)[blockBytes], const ColorBlock& color, std::uint16_t rest) {
  for (int i = 0; i < blockBytes; ++i)
    bytes[i] = std::uint8_t(color.bytes[i] + divided(std::uint16_t(bytes[i] * rest)));
}

// Pixel by pixel: its four channels in four 16-bit lanes of one number.

using Lanes = std::uint64_t;
constexpr Lanes eachLane = 0x0001000100010001;
constexpr Lanes lowBytes = 0x00FF00FF00FF00FF;

Lanes lanesOf(Pixel pixel) { return (pixel & 0x00FF00FFull) | (Lanes{pixel & 0xFF00FF00u} << 24); }
Pixel pixelOf(Lanes lanes) { return Pixel(lanes & 0x00FF00FF) | Pixel((lanes >> 24) & 0xFF00FF00); }

/// All four channels times `factor` / 255.
Lanes scaled(Lanes lanes, std::uint8_t factor) {
  const Lanes t = lanes * factor + eachLane * 128;
  return ((t + ((t >> 8) & lowBytes)) >> 8) & lowBytes;
}

/// `source` over an opaque pixel.
Pixel over(Lanes source, Pixel below) {
  return pixelOf(source + scaled(lanesOf(below), std::uint8_t(opaque - (source >> 48))));
}

}  // namespace

Pixel scaledPixel(Pixel pixel, std::uint8_t factor) { return pixelOf(scaled(lanesOf(pixel), factor)); }

void fillRow(Pixel* row, int count, Pixel color) { std::fill_n(row, count, color); }

void tintRow(Pixel* row, int count, Pixel color) { copyTintedRow(row, row, count, color); }

void copyRow(Pixel* row, const Pixel* opaquePixels, int count) {
  for (int i = 0; i < count; ++i) row[i] = opaquePixels[i] | opaqueBlackPixel;
}

void copyTintedRow(Pixel* row, const Pixel* opaquePixels, int count, Pixel color) {
  const ColorBlock colors(color);
  const std::uint16_t rest = opaque - alphaOf(color);
  // By way of a block of its own: the two rows may be one.
  std::uint8_t block[blockBytes];
  for (; count >= blockPixels; count -= blockPixels, row += blockPixels, opaquePixels += blockPixels) {
    std::memcpy(block, opaquePixels, blockBytes);
    tint(block, colors, rest);
    std::memcpy(row, block, blockBytes);
  }
  if (count == 0) return;
  const auto bytesLeft = std::size_t(count) * channels;
  std::memcpy(block, opaquePixels, bytesLeft);
  tint(block, colors, rest);
  std::memcpy(row, block, bytesLeft);
}

void fadeRow(Pixel* row, const Pixel* opaquePixels, int count, std::uint8_t opacity) {
  for (int i = 0; i < count; ++i)
    row[i] = over(scaled(lanesOf(opaquePixels[i] | opaqueBlackPixel), opacity), row[i]);
}

void blendRow(Pixel* row, const Pixel* source, int count, std::uint8_t opacity) {
  for (int i = 0; i < count; ++i) {
    if (source[i] == 0) continue;
    const bool covers = opacity == opaque && alphaOf(source[i]) == opaque;
    row[i] = covers ? source[i] : over(scaled(lanesOf(source[i]), opacity), row[i]);
  }
}

void shadeRow(Pixel* row, const std::uint16_t* along, std::uint16_t across, int count, Pixel color) {
  const Lanes lanes = lanesOf(color);
  for (int i = 0; i < count; ++i) row[i] = over(scaled(lanes, shadowCoverage(along[i], across)), row[i]);
}
