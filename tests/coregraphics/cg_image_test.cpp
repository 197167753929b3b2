#include "platform/coregraphics/cg_image.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/pictures.h"

namespace {

constexpr CGFloat noNumber = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat endless = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat huge = std::numeric_limits<CGFloat>::max();

TEST(CGImage, CutsTheWholePixelsThatARectangleTouches) {
  const struct {
    CGFloat left, top, wide, high;
    int x, y, width, height;  // A width of 0 stands for no picture.
  } cases[] = {{0.9f, 1.1f, 1.2f, 0.1f, 0, 1, 3, 1},
               {10.5f, 20.5f, 1, 1, 10, 20, 2, 2},
               {0, 40, 64, 152, 0, 40, 64, 56},
               {-5, -5, 10, 10, 0, 0, 5, 5},
               {-0.5f, 0, 0.5f, 9, 0, 0, 0, 0},
               {63.5f, 95.5f, 9, 9, 63, 95, 1, 1},
               {20, 20, -10, -5, 10, 15, 10, 5},
               {0, 0, 64, 0, 0, 0, 0, 0},
               {0, 96, 64, 10, 0, 0, 0, 0},
               {0, 120, 64, -24, 0, 0, 0, 0},
               {-3e9f, -3e9f, 6e9f, 6e9f, 0, 0, 64, 96},
               {huge, 0, huge, 10, 0, 0, 0, 0},
               {0, 0, noNumber, 10, 0, 0, 0, 0},
               {-endless, 0, endless, 10, 0, 0, 0, 0}};
  const CGImageRef image = noise(64, 96);
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(&c - cases));
    const CGImageRef cut = CGImageCreateWithImageInRect(image, CGRectMake(c.left, c.top, c.wide, c.high));
    ASSERT_EQ(CGImageGetWidth(cut), std::size_t(c.width));
    ASSERT_EQ(CGImageGetHeight(cut), std::size_t(c.height));
    if (!cut) continue;
    // The very same bytes, not copies.
    EXPECT_EQ(cut->row(0), image->row(c.y) + 4 * c.x);
    EXPECT_EQ(cut->row(cut->height() - 1), image->row(c.y + c.height - 1) + 4 * c.x);
  }
  EXPECT_EQ(CGImageCreateWithImageInRect(nullptr, CGRectMake(0, 0, 1, 1)), nullptr);
}

TEST(CGImage, IsMadeOnlyWhereTheBytesSuffice) {
  constexpr std::size_t longest = std::numeric_limits<std::size_t>::max();
  const struct {
    int width, height;
    std::size_t bytesPerRow, offset;
    bool made;
  } cases[] = {{4, 3, 16, 0, true},       {4, 3, 15, 0, false}, {4, 3, 16, 4, false},
               {3, 3, 16, 4, true},       {4, 1, 16, 32, true}, {4, 1, 16, 49, false},
               {1, 2, longest, 4, false}, {0, 3, 16, 0, false}, {4, -1, 16, 0, false}};
  const auto pixels = std::make_shared<std::vector<std::uint8_t>>(48);
  for (const auto& c : cases) {
    EXPECT_EQ(CGImage::create(c.width, c.height, {}, c.bytesPerRow, pixels, c.offset) != nullptr, c.made)
        << testing::PrintToString(&c - cases);
  }
  EXPECT_EQ(
      CGImage::create(1, 1, {16, 64, CGColorSpace::DeviceRGB, kCGImageAlphaPremultipliedLast}, 8, pixels),
      nullptr);
  EXPECT_EQ(CGImage::create(1, 1, {8, 8, CGColorSpace::DeviceRGB, kCGImageAlphaNone}, 4, pixels), nullptr);
}

TEST(CGImage, EveryLayoutConvertsToTheScreens) {
  const auto pixel = [](CGBitmapInfo info, std::vector<std::uint8_t> bytes) {
    return colorAt(pictureOf(1, 1, formatWith(info), std::move(bytes)), 0, 0);
  };
  EXPECT_EQ(pixel(kCGImageAlphaPremultipliedLast, {10, 20, 30, 40}), (Color{10, 20, 30, 40}));
  EXPECT_EQ(pixel(kCGImageAlphaNoneSkipLast, {10, 20, 30, 0}), (Color{10, 20, 30, 255}));
  EXPECT_EQ(pixel(kCGImageAlphaNoneSkipFirstLittle, {30, 20, 10, 0}), (Color{10, 20, 30, 255}));
  EXPECT_EQ(colorAt(pictureOf(1, 1, grayFormat, {77}), 0, 0), (Color{77, 77, 77, 255}));

  // Rows that do not start on whole words cannot be drawn from in place.
  const auto bytes =
      std::make_shared<std::vector<std::uint8_t>>(std::vector<std::uint8_t>{0, 1, 2, 3, 4, 0, 5, 6, 7, 8});
  const CGImageRef odd = CGImage::create(1, 2, {}, 5, bytes, 1);
  EXPECT_NE(CGImage::inScreenFormat(odd), odd);
  EXPECT_EQ(colorAt(odd, 0, 1), (Color{7, 6, 5, 8}));
  const CGImageRef whole = noise(2, 2);
  EXPECT_EQ(CGImage::inScreenFormat(whole), whole);
}

}  // namespace
