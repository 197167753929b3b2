#include "platform/coregraphics/cg_context.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/pictures.h"

namespace {

constexpr CGColor pureRed{1, 0, 0, 1};
constexpr CGColor pureBlue{0, 0, 1, 1};

/// The number of pixels in columns `left` to `right` - 1 that are not quite transparent.
int inkBetween(const CGImageRef& image, int left, int right) {
  int count = 0;
  for (int y = 0; y < image->height(); ++y) {
    for (int x = left; x < right; ++x) count += colorAt(image, x, y).alpha > 0;
  }
  return count;
}

TEST(CGContext, DrawsPixelForPixelWithoutTouchingAny) {
  // 30 x 42 pixels, 15 x 21 points at scale 2.
  const CGImageRef image = CGImageCreateWithImageInRect(noise(40, 50), CGRectMake(3, 5, 30, 42));
  const struct {
    const char* how;
    CGAffineTransform placed;
    CGPoint origin;
    CGAffineTransform source;  // From the pixel drawn to the picture's.
  } cases[] = {
      {"upright", {}, {0, 0}, {}},
      {"where rounding just misses the grid",
       {1.00002f, 0, 0, 0.99998f, -300.006f, -299.994f},
       {300, 300},
       {}},
      {"mirrored", {-1, 0, 0, 1, 15, 0}, {0, 0}, {-1, 0, 0, 1, 29, 0}},
      {"turned to the right", {-4e-8f, 1, -1, -4e-8f, 21, 0}, {0, 0}, {0, -1, 1, 0, 0, 41}},
  };
  for (const auto& c : cases) {
    CGContext context({30, 30}, 2);
    context.concat(c.placed);
    context.drawImage(image, {c.origin, {15, 21}});
    const CGImageRef drawn = context.createImage();
    int same = 0;
    for (int y = 0; y < drawn->height(); ++y) {
      for (int x = 0; x < drawn->width(); ++x) {
        const CGPoint from = CGPointApplyAffineTransform({CGFloat(x), CGFloat(y)}, c.source);
        const bool inside = CGRectContainsPoint(CGRectMake(0, 0, 30, 42), from);
        const Color expected = inside ? colorAt(image, int(from.x), int(from.y)) : Color{0, 0, 0, 0};
        same += colorAt(drawn, x, y) == expected;
      }
    }
    EXPECT_EQ(same, 60 * 60) << c.how;
  }
}

TEST(CGContext, AveragesWhereAPictureShrinks) {
  // Thin white lines: whoever looks at the pixels in the middle only misses them.
  std::vector<std::uint8_t> lines(64 * 64);
  for (std::size_t i = 0; i < lines.size(); i += 8) lines[i] = 255;
  CGContext context({8, 8}, 1);
  context.drawImage(pictureOf(64, 64, grayFormat, lines), CGRectMake(0, 0, 8, 8));
  const CGImageRef drawn = context.createImage();
  for (int i = 0; i < 8; ++i) EXPECT_NEAR(colorAt(drawn, i, 7 - i).green, 255 / 8, 4);
  EXPECT_EQ(colorAt(drawn, 0, 7).alpha, 255) << "edges do not fade";
}

TEST(CGContext, ATransformThatFlattensThePlaneDrawsNothingUntilRestored) {
  CGContext context({4, 4}, 1);
  context.save();
  context.concat(CGAffineTransformMakeScale(1, 0));
  context.fill(CGRectMake(0, 0, 4, 4), pureBlue);
  context.restore();
  EXPECT_EQ(inkBetween(context.createImage(), 0, 4), 0);
  context.fill(CGRectMake(0, 0, 4, 4), pureRed);
  EXPECT_EQ(colorAt(context.createImage(), 3, 3), (Color{255, 0, 0}));
}

TEST(CGContext, SetsALineOfTextWithinItsRectangle) {
  const auto draw = [](std::string_view text, CGTextAlignment alignment, bool bold = false) {
    CGContext context({100, 40}, 1);
    context.drawText(text, CGRectMake(10, 0, 80, 40), {17, bold, pureRed, alignment});
    return context.createImage();
  };
  const CGImageRef left = draw("il", CGTextAlignment::Left);
  EXPECT_GT(inkBetween(left, 10, 20), 0);
  EXPECT_EQ(inkBetween(left, 30, 100), 0);
  EXPECT_LT(inkBetween(left, 0, 100), inkBetween(draw("il", CGTextAlignment::Left, true), 0, 100));
  EXPECT_GT(inkBetween(draw("il", CGTextAlignment::Right), 80, 91), 0);
  EXPECT_GT(inkBetween(draw("il", CGTextAlignment::Center), 45, 55), 0);
  const CGImageRef cut = draw("A name that is by far too long\nfor one line", CGTextAlignment::Left);
  EXPECT_EQ(inkBetween(cut, 91, 100), 0);
  EXPECT_GT(inkBetween(draw("\xff\xfe", CGTextAlignment::Left), 0, 100), 0)
      << "broken UTF-8 shows replacements";
}

}  // namespace
