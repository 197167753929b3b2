#include "platform/coregraphics/image_codec.h"

#include <gtest/gtest.h>

#include "tests/coregraphics/foreign_pictures.h"
#include "tests/support/pictures.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

/// Half-transparent, opaque and clear pixels.
CGImageRef translucent() { return pictureOf(3, 1, {}, {10, 60, 128, 128, 30, 20, 10, 255, 0, 0, 0, 0}); }

void expectNear(Color actual, Color expected, int tolerance) {
  EXPECT_NEAR(actual.red, expected.red, tolerance);
  EXPECT_NEAR(actual.green, expected.green, tolerance);
  EXPECT_NEAR(actual.blue, expected.blue, tolerance);
  EXPECT_EQ(actual.alpha, expected.alpha);
}

TEST(ImageCodec, PngKeepsEveryPixelAndTheLayout) {
  const CGImageRef gray = pictureOf(3, 2, grayFormat, {1, 2, 3, 4, 5, 250});
  const CGImageRef cut = CGImageCreateWithImageInRect(noise(33, 17), CGRectMake(5, 6, 7, 8));
  for (const CGImageRef& image : {gray, cut, translucent()}) {
    const CGImageRef decoded = decodeImage(encodePng(image));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->format(), image->format());
    for (int y = 0; y < image->height(); ++y) {
      for (int x = 0; x < image->width(); ++x) EXPECT_EQ(colorAt(decoded, x, y), colorAt(image, x, y));
    }
  }
}

TEST(ImageCodec, JpegKeepsColoursSharpAtFullQualityAndComposesOntoBlack) {
  // Single columns of red and blue: subsampling would mix them.
  Bytes stripes;
  for (int i = 0; i < 16 * 16; ++i) {
    const std::uint8_t red = i % 2 ? 255 : 0;
    stripes.insert(stripes.end(), {red, 0, std::uint8_t(255 - red), 255});
  }
  const CGImageRef image = pictureOf(16, 16, formatWith(kCGImageAlphaNoneSkipLast), stripes);
  const CGImageRef best = decodeImage(encodeJpeg(image, 1));
  EXPECT_EQ(best->format(), formatWith(kCGImageAlphaNoneSkipFirstLittle));
  expectNear(colorAt(best, 7, 7), {255, 0, 0}, 6);
  EXPECT_GT(colorAt(decodeImage(encodeJpeg(image, 0.9f)), 7, 7).blue, 50);
  EXPECT_LT(encodeJpeg(image, -1).size(), encodeJpeg(image, 0.5f).size());

  expectNear(colorAt(decodeImage(encodeJpeg(translucent(), 1)), 0, 0), {128, 60, 10}, 6);
  const CGImageRef gray = decodeImage(encodeJpeg(pictureOf(1, 1, grayFormat, {200}), 1));
  EXPECT_EQ(gray->format(), grayFormat);
  EXPECT_NEAR(*gray->row(0), 200, 1);
}

TEST(ImageCodec, ReadsEveryKindOfPng) {
  const CGPixelFormat opaque = formatWith(kCGImageAlphaNoneSkipFirstLittle), alpha;
  const struct {
    const char* name;
    PngKind kind;
    Bytes row;
    CGPixelFormat format;
    std::vector<Color> colors;
    // clang-format off
  } cases[] = {
      {"1-bit grey", {PNG_COLOR_TYPE_GRAY, 1}, {0x40}, grayFormat, {{0, 0, 0}, {255, 255, 255}}},
      {"16-bit grey", {PNG_COLOR_TYPE_GRAY, 16}, {0x80, 0, 0x12, 0xFF}, grayFormat, {{128, 128, 128}, {19, 19, 19}}},
      {"grey, one shade clear", {PNG_COLOR_TYPE_GRAY, 8, {}, 9}, {9, 10}, alpha, {{0, 0, 0, 0}, {10, 10, 10}}},
      {"grey with alpha", {PNG_COLOR_TYPE_GRAY_ALPHA}, {100, 51}, alpha, {{20, 20, 20, 51}}},
      {"16-bit alpha", {PNG_COLOR_TYPE_RGB_ALPHA, 16}, {255, 255, 0, 0, 0, 0, 128, 128}, alpha, {{128, 0, 0, 128}}},
      {"16-bit, one colour clear", {PNG_COLOR_TYPE_RGB, 16, {}, 0x0102}, {1, 2, 1, 2, 1, 2, 1, 3, 1, 2, 1, 2},
       alpha, {{0, 0, 0, 0}, {1, 1, 1}}},
      {"2-bit palette", {PNG_COLOR_TYPE_PALETTE, 2}, {0x40}, opaque, {{40, 50, 60}, {1, 2, 3}}},
      {"palette, one clear", {PNG_COLOR_TYPE_PALETTE, 8, {0}}, {0, 1}, alpha, {{0, 0, 0, 0}, {40, 50, 60}}},
      {"interlaced", {PNG_COLOR_TYPE_RGB, 8, {}, -1, PNG_INTERLACE_ADAM7}, {1, 2, 3, 4, 5, 6}, opaque,
       {{1, 2, 3}, {4, 5, 6}}},
  };
  // clang-format on
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const CGImageRef image = decodeImage(pngOf(int(c.colors.size()), 3, c.kind, c.row));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->format(), c.format);
    for (int x = 0; x < image->width(); ++x) EXPECT_EQ(colorAt(image, x, 2), c.colors[std::size_t(x)]);
  }
}

TEST(ImageCodec, ReadsProgressiveJpegsAndInks) {
  expectNear(colorAt(decodeImage(jpegOf({200, 100, 50})), 19, 9), {200, 100, 50}, 3);
  expectNear(colorAt(decodeImage(jpegOf({0, 255, 100, 200})), 19, 9), {0, 200, 78}, 3);
}

TEST(ImageCodec, WhatIsBrokenOffAnywhereIsNoPicture) {
  const PngKind interlaced{PNG_COLOR_TYPE_RGB, 8, {}, -1, PNG_INTERLACE_ADAM7};
  for (const NSData& file : {encodePng(translucent()), encodeJpeg(noise(40, 40), 0.8f),
                             pngOf(2, 2, interlaced, Bytes(6)), jpegOf({200, 100, 50}), jpegOf(Bytes(4))}) {
    ASSERT_TRUE(decodeImage(file));
    for (std::size_t at = 0; at < file.size(); ++at) {
      EXPECT_EQ(decodeImage(NSData(file.begin(), file.begin() + std::ptrdiff_t(at))), nullptr)
          << at << " bytes";
      NSData damaged = file;  // Damage may go unseen, but must do no harm.
      damaged[at] ^= 0xFF;
      decodeImage(damaged);
    }
  }
  EXPECT_EQ(decodeImage({'G', 'I', 'F', '8', '9', 'a', 0, 0, 0}), nullptr);
  EXPECT_TRUE(encodePng(nullptr).empty() && encodeJpeg(nullptr, 1).empty());
}

TEST(ImageCodec, RefusesSizesBeyondMeasure) {
  NSData longer = pngOf(1, 1, {PNG_COLOR_TYPE_RGB}, Bytes(3));  // Its header, and the pixels of a large one.
  const NSData large = encodePng(noise(100, 100));
  constexpr std::size_t headerEnd = 33;
  longer.erase(longer.begin() + headerEnd, longer.end());
  longer.insert(longer.end(), large.begin() + headerEnd, large.end());
  EXPECT_EQ(decodeImage(longer), nullptr);
  EXPECT_TRUE(decodeImage(encodePng(noise(9, 8)), nullptr, 9));
  for (const NSData& file : {encodePng(noise(9, 8)), encodeJpeg(noise(8, 9), 1)})
    EXPECT_EQ(decodeImage(file, nullptr, 8), nullptr);
  // Whole and well-formed; the first asks for 16 million pixels and a few more, the second is too long to be
  // drawn.
  EXPECT_EQ(decodeImage(pngOf(4100, 4100, {PNG_COLOR_TYPE_GRAY, 1}, Bytes(513))), nullptr);
  EXPECT_EQ(decodeImage(pngOf(40'000, 1, {PNG_COLOR_TYPE_GRAY}, Bytes(40'000))), nullptr);
}

TEST(ImageCodec, ReadsTheOrientationAndTrustsNothingInIt) {
  const Bytes tiff{'I', 'I', 42, 0, 8, 0, 0, 0, 1, 0, 0x12, 1, 3, 0, 1, 0, 0, 0, 6, 0, 0, 0};
  const Bytes cut(tiff.begin(), tiff.begin() + 19);
  constexpr std::size_t order = 0, magic = 2, directory = 4, entries = 8, type = 12, count = 14, value = 18;
  // clang-format off
  const struct {
    Bytes tiff;
    std::size_t at;   // The byte that is set,
    std::uint8_t to;  // and to what.
    int expected;
  } cases[] = {{tiff, value, 8, 8}, {tiff, value, 0, 1}, {tiff, value, 9, 1}, {tiff, order, 'X', 1},
               {tiff, magic, 43, 1}, {tiff, type, 4, 1}, {tiff, count, 2, 1}, {tiff, directory, 0, 1},
               {tiff, directory + 3, 255, 1}, {tiff, entries + 1, 255, 6}, {cut, order, 'I', 1}, {{0}, 0, 0, 1}};
  // clang-format on
  for (auto c : cases) {
    c.tiff[c.at] = c.to;
    Bytes segment{0xFF, 0xE1, 0, std::uint8_t(c.tiff.size() + 8), 'E', 'x', 'i', 'f', 0, 0};
    segment.insert(segment.end(), c.tiff.begin(), c.tiff.end());
    NSData jpeg = encodeJpeg(noise(8, 8), 1);
    jpeg.insert(jpeg.begin() + 2, segment.begin(), segment.end());
    int orientation = 0;
    EXPECT_TRUE(decodeImage(jpeg, &orientation));
    EXPECT_EQ(orientation, c.expected) << testing::PrintToString(c.tiff);
  }
}

}  // namespace
