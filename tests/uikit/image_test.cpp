#include <gtest/gtest.h>

#include "platform/coregraphics/image_codec.h"
#include "platform/foundation/file_manager.h"
#include "platform/uikit/display.h"
#include "platform/uikit/ui_image_view.h"
#include "tests/support/temporary_root.h"

namespace {

constexpr auto Plain = NSFileManager::Writing::Plain;

/// An opaque grey picture with the given pixel values, row by row.
CGImageRef picture(int width, std::vector<std::uint8_t> values) {
  std::vector<std::uint8_t> bytes;
  for (auto value : values) bytes.insert(bytes.end(), {value, value, value, 255});
  const int height = int(values.size()) / width;
  return CGImage::create(width, height, {}, std::size_t(width) * 4,
                         std::make_shared<const std::vector<std::uint8_t>>(std::move(bytes)));
}

/// The rows' values one after the other, as digits.
std::string valuesOf(const CGImage& image) {
  std::string values;
  for (int i = 0; i < image.width() * image.height(); ++i)
    values += std::to_string(image.row(i / image.width())[i % image.width() * 4]);
  return values;
}

/// `jpeg` with an orientation in the way that cameras write it.
NSData withExifOrientation(NSData jpeg, std::uint8_t orientation) {
  const NSData segment{0xFF, 0xE1, 0, 34, 'E', 'x', 'i', 'f', 0, 0, 'M', 'M',         0, 42, 0, 0, 0, 8,
                       0,    1,    1, 18, 0,   3,   0,   0,   0, 1, 0,   orientation, 0, 0,  0, 0, 0, 0};
  jpeg.insert(jpeg.begin() + 2, segment.begin(), segment.end());
  return jpeg;
}

using Images = TemporaryRoot;

TEST_F(Images, AreSeenAsTheirOrientationSays) {
  using enum UIImageOrientation;
  // Stored:  1 2 3
  //          4 5 6
  const CGImageRef stored = picture(3, {1, 2, 3, 4, 5, 6});
  const struct {
    UIImageOrientation orientation;
    std::uint8_t exif;
    int width;
    const char* seen;
  } cases[] = {
      {Up, 1, 3, "123456"},
      {UpMirrored, 2, 3, "321654"},
      {Down, 3, 3, "654321"},
      {DownMirrored, 4, 3, "456123"},
      {LeftMirrored, 5, 2, "142536"},
      {Right, 6, 2, "415263"},
      {RightMirrored, 7, 2, "635241"},
      {Left, 8, 2, "362514"},
  };
  setDisplay(std::make_shared<WindowDisplay>(CGSize{320, 480}, 1));
  for (const auto& testCase : cases) {
    auto image = UIImage::imageWithCGImage(stored, 2, testCase.orientation);
    const CGImageRef upright = image->uprightCGImage();
    EXPECT_EQ(upright->width(), testCase.width) << int(testCase.exif);
    EXPECT_EQ(valuesOf(*upright), testCase.seen) << int(testCase.exif);
    EXPECT_EQ(image->size(), (CGSize{CGFloat(upright->width()) / 2, CGFloat(upright->height()) / 2}));

    UIImageView view;
    view.setImage(image);
    EXPECT_EQ(valuesOf(*view.layer().contents()), testCase.seen);
    files().write("/turned.jpg", withExifOrientation(encodeJpeg(stored, 1), testCase.exif), Plain);
    auto read = UIImage::imageWithContentsOfFile("/turned.jpg");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->orientation(), testCase.orientation);
  }
}

TEST_F(Images, TheLargeFileIsTakenOnADoubleScreen) {
  auto write = [](const std::string& path, int side) {
    files().write(path, encodePng(picture(side, std::vector<std::uint8_t>(side * side))), Plain);
  };
  write("/a.b/both.png", 2);
  write("/a.b/both@2x.png", 4);
  write("/a.b/small.png", 2);
  write("/a.b/large@2x.png", 4);
  write("/a.b/bare@2x", 4);
  files().write("/a.b/broken.png", {1, 2, 3}, Plain);

  const struct {
    const char* path;
    CGFloat screen;
    int width;  // 0 for no picture.
    CGFloat scale;
  } cases[] = {
      {"/a.b/both.png", 1, 2, 1},    {"/a.b/both.png", 2, 4, 2},    {"/a.b/small.png", 2, 2, 1},
      {"/a.b/both@2x.png", 1, 4, 2}, {"/a.b/both@2x.png", 2, 4, 2}, {"/a.b/large.png", 1, 0, 0},
      {"/a.b/large.png", 2, 4, 2},   {"/a.b/bare", 2, 4, 2},        {"/a.b/broken.png", 2, 0, 0},
      {"/a.b/missing.png", 2, 0, 0},
  };
  for (const auto& testCase : cases) {
    setDisplay(std::make_shared<WindowDisplay>(CGSize{320, 480}, testCase.screen));
    auto image = UIImage::imageWithContentsOfFile(testCase.path);
    SCOPED_TRACE(testCase.path);
    ASSERT_EQ(image != nullptr, testCase.width > 0);
    if (!image) continue;
    EXPECT_EQ(image->cgImage()->width(), testCase.width);
    EXPECT_EQ(image->scale(), testCase.scale);
  }
}

}  // namespace
