#include "effects/stack_blur.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <vector>

#include "tests/support/pictures.h"
#include "tests/support/stack_blur_definition.h"

namespace {

using blur_definition::Bytes;

constexpr std::uint32_t maxRadius = std::numeric_limits<std::uint32_t>::max();

TEST(StackBlur, IsItsDefinitionForAnySizeAndRadius) {
  std::mt19937 random(5);
  const std::uint32_t radii[] = {0,   1,    2,    3,    7,    10,       50,       181,      255,
                                 256, 2900, 2901, 4094, 4095, 1u << 16, 1u << 28, 1u << 31, maxRadius};
  for (const std::uint32_t radius : radii) {
    for (int round = 0; round < 8; ++round) {
      const int width = int(random() % 40) + 1, height = int(random() % 40) + 1;
      Bytes pixels(std::size_t(width) * std::size_t(height) * 4);
      // Every other round of nothing but extremes, where means fall on whole numbers or just short of them.
      for (auto& byte : pixels) byte = round % 2 ? std::uint8_t(random()) : random() % 4 ? 255 : 0;
      const Bytes expected = blur_definition::blurred(pixels, width, height, radius);
      vistrel::applyStackBlurToBuffer(pixels.data(), width, height, radius);
      ASSERT_EQ(pixels, expected) << width << " x " << height << ", radius " << radius;
    }
  }
}

TEST(StackBlur, WorkedExamples) {
  const struct {
    std::uint32_t radius;
    Bytes from, to;
  } cases[] = {
      {1, {0, 0, 255, 0, 0}, {0, 63, 127, 63, 0}},
      // Of 121 the left edge weighs 66 at pixel 0 and 55 at pixel 1.
      {10, {255, 0}, {255 * 66 / 121, 255 * 55 / 121}},
      // To a radius without end the edges are all there is, but for a touch of what lies between them.
      {maxRadius, {255, 7, 7, 255}, {254, 254, 254, 254}},
  };
  for (const auto& c : cases) {
    Bytes pixels, expected;
    for (const std::uint8_t value : c.from) pixels.insert(pixels.end(), {value, 0, 0, 9});
    for (const std::uint8_t value : c.to) expected.insert(expected.end(), {value, 0, 0, 9});
    vistrel::applyStackBlurToBuffer(pixels.data(), int(c.from.size()), 1, c.radius);
    EXPECT_EQ(pixels, expected) << "radius " << c.radius;
  }
}

TEST(StackBlur, ReturnsTheReceiverWhereThereIsNothingToBlur) {
  const auto image = UIImage::imageWithCGImage(pictureOf(1, 1, {}, Bytes(4)));
  EXPECT_EQ(vistrel::stackBlur(image, 0), image);
  const auto empty = std::make_shared<UIImage>(nullptr, 1, UIImageOrientation::Up);
  EXPECT_EQ(vistrel::stackBlur(empty, 5), empty);
  EXPECT_EQ(vistrel::stackBlur(nullptr, 5), nullptr);
  Bytes pixels{1, 2, 3, 4};
  vistrel::applyStackBlurToBuffer(pixels.data(), 0, 1, 3);
  vistrel::applyStackBlurToBuffer(pixels.data(), 1, -1, 3);
  EXPECT_EQ(pixels, (Bytes{1, 2, 3, 4}));
  // A grey picture of less than a point cannot be redrawn in colour.
  const auto tiny = UIImage::imageWithCGImage(pictureOf(1, 1, grayFormat, {9}), 2, UIImageOrientation::Up);
  EXPECT_EQ(vistrel::stackBlur(tiny, 5), tiny);
}

TEST(StackBlur, BlursPaddedRowsInTheirOwnLayoutAndLeavesTheSource) {
  // A 3 x 2 cut out of 5 x 3 pixels, each surrounded by white.
  Bytes bytes(5 * 3 * 4, 255);
  const Bytes packed{0, 10, 20, 1, 30, 40, 50, 2, 60, 70, 80, 3, 90, 80, 70, 4, 60, 50, 40, 5, 30, 20, 10, 6};
  std::copy_n(packed.begin(), 12, bytes.begin() + 4);
  std::copy_n(packed.begin() + 12, 12, bytes.begin() + 24);
  const CGImageRef whole = pictureOf(5, 3, {}, bytes);
  const CGImageRef cut = CGImageCreateWithImageInRect(whole, CGRectMake(1, 0, 3, 2));
  const auto blurred = vistrel::stackBlur(UIImage::imageWithCGImage(cut, 2, UIImageOrientation::Left), 2);
  EXPECT_EQ(blurred->scale(), 1);
  EXPECT_EQ(blurred->size(), CGSizeMake(3, 2));
  EXPECT_EQ(blurred->orientation(), UIImageOrientation::Up);
  EXPECT_EQ(blurred->cgImage()->format(), cut->format());
  EXPECT_EQ(CGDataProviderCopyData(blurred->cgImage()), blur_definition::blurred(packed, 3, 2, 2));
  EXPECT_EQ(CGDataProviderCopyData(whole), bytes);
}

TEST(StackBlur, NormalizesGreyPicturesToColourAtTheirSizeInPoints) {
  const auto image = UIImage::imageWithCGImage(pictureOf(3, 1, grayFormat, {0, 90, 180}));
  const auto normalized = vistrel::normalize(*image);
  EXPECT_EQ(normalized->cgImage()->format().bitmapInfo, kCGImageAlphaPremultipliedLast);
  const Bytes colours{0, 0, 0, 255, 90, 90, 90, 255, 180, 180, 180, 255};
  EXPECT_EQ(CGDataProviderCopyData(normalized->cgImage()), colours);
  EXPECT_EQ(CGDataProviderCopyData(vistrel::stackBlur(image, 1)->cgImage()),
            blur_definition::blurred(colours, 3, 1, 1));

  const auto large =
      UIImage::imageWithCGImage(pictureOf(7, 5, grayFormat, Bytes(35, 8)), 2, UIImageOrientation::Up);
  EXPECT_EQ(vistrel::normalize(*large)->size(), CGSizeMake(3, 2)) << "3.5 x 2.5 points, truncated";
}

}  // namespace
