#include <gtest/gtest.h>

#include "platform/uikit/display.h"
#include "switcher/card_scroller.h"
#include "switcher/shared_state.h"

namespace vistrel {
namespace {

/// A picture whose pixels tell where they stand.
std::shared_ptr<UIImage> picture(int width, int height, float scale = 1) {
  auto pixels = std::make_shared<std::vector<std::uint8_t>>();
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      pixels->insert(pixels->end(),
                     {static_cast<std::uint8_t>(y), static_cast<std::uint8_t>(y >> 8), 0, 255});
    }
  }
  return UIImage::imageWithCGImage(CGImage::create(width, height, {}, std::size_t(width) * 4, pixels), scale,
                                   UIImageOrientation::Up);
}

int firstRow(const UIImage& image) { return image.cgImage()->row(0)[0] | image.cgImage()->row(0)[1] << 8; }

TEST(Bands, CutWholeRowsAtTheSplit) {
  using Band = std::shared_ptr<UIImage> (*)(const std::shared_ptr<UIImage>&, float);
  struct Case {
    float scale;
    Band band;
    float point;
    int row, width, height;  // height 0: no band
  };
  const Case cases[] = {
      {1, CardScroller::topImage, 200, 0, 320, 200},
      {1, CardScroller::bottomImage, 200, 200, 320, 280},
      {2, CardScroller::topImage, 200, 0, 640, 400},
      {2, CardScroller::bottomImage, 200, 400, 640, 560},
      {2, CardScroller::middleImage, 160, 320, 640, 160},
      {2, CardScroller::topMiddleImage, 160, 320, 640, 80},
      {2, CardScroller::bottomMiddleImage, 160, 320, 640, 80},
      {2, CardScroller::middleImage, 460, 920, 640, 40},
      {1, CardScroller::topImage, 100.25f, 0, 320, 101},
      {1, CardScroller::middleImage, -20, 0, 320, 60},
      {1, CardScroller::topImage, 0, 0, 0, 0},
      {1, CardScroller::bottomImage, 480, 0, 0, 0},
      {2, CardScroller::topImage, -1, 0, 0, 0},
  };
  for (const Case& c : cases) {
    setDisplay(std::make_shared<WindowDisplay>(CGSize{320, 480}, c.scale));
    screenWidth = 320;
    auto band = c.band(picture(int(320 * c.scale), int(480 * c.scale)), c.point);
    if (c.height == 0) {
      EXPECT_EQ(band, nullptr) << c.point;
      continue;
    }
    ASSERT_NE(band, nullptr) << c.point;
    EXPECT_EQ(firstRow(*band), c.row);
    EXPECT_EQ(band->size(), CGSizeMake(float(c.width), float(c.height))) << c.point;
    EXPECT_EQ(c.band(nullptr, c.point), nullptr);
  }
}

TEST(Bands, APictureOfScaleTwoIsCutInPixels) {
  auto image = picture(100, 100, 2);
  auto part = CardScroller::cropImage(image, CGRectMake(10, 20, 15, 10));
  EXPECT_EQ(firstRow(*part), 40);
  EXPECT_EQ(part->size(), CGSizeMake(15, 10));
  EXPECT_EQ(part->cgImage()->row(0), image->cgImage()->row(40) + 20 * 4) << "no pixel is copied";
}

}  // namespace
}  // namespace vistrel
