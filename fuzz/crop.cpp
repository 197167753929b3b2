// Cropping with any rectangle, and the bands of any picture: the pixels that the rectangle touches, in place.

#include <algorithm>
#include <memory>
#include <vector>

#include "fuzz/input.h"
#include "fuzz/promise.h"
#include "platform/uikit/display.h"
#include "switcher/card_scroller.h"
#include "switcher/shared_state.h"
#include "tests/support/geometry.h"

namespace {

constexpr int longestSide = 32767;
constexpr int mostBytes = 1 << 18;

/// The pixels, out of `limit`, that a stretch touches: asked one by one.
struct Stretch {
  int begin = 0, end = 0;
};
Stretch touched(CGFloat origin, CGFloat length, int limit) {
  const CGFloat low = std::min(origin, origin + length), high = std::max(origin, origin + length);
  Stretch result;
  for (int i = 0; i < limit; ++i) {
    if (!(CGFloat(i + 1) > low && CGFloat(i) < high)) continue;
    if (result.end == 0) result.begin = i;
    result.end = i + 1;
  }
  return result;
}

void checkCrop(const CGImageRef& image, CGRect rect) {
  const CGImageRef part = CGImageCreateWithImageInRect(image, rect);
  const Stretch x = touched(rect.origin.x, rect.size.width, image->width());
  const Stretch y = touched(rect.origin.y, rect.size.height, image->height());
  if (!vistrel::test::isFinite(rect) || x.end == 0 || y.end == 0)
    return fuzz::require(!part, "nothing gives nothing");
  fuzz::require(part && part->width() == x.end - x.begin && part->height() == y.end - y.begin,
                "a crop has the pixels that the rectangle touches");
  fuzz::require(
      part->row(0) == image->row(y.begin) + std::size_t(x.begin) * image->format().bytesPerPixel() &&
          part->bytesPerRow() == image->bytesPerRow(),
      "a crop lies where the rectangle does");
}

void checkBand(const std::shared_ptr<UIImage>& band, const UIImage& image) {
  if (!band) return;
  const CGImage &part = *band->cgImage(), &whole = *image.cgImage();
  const auto endOf = [](const CGImage& each) {
    return each.row(each.height() - 1) + std::size_t(each.width()) * each.format().bytesPerPixel();
  };
  fuzz::require(part.row(0) >= whole.row(0) && endOf(part) <= endOf(whole), "a band lies in its picture");
  fuzz::require(band->orientation() == image.orientation(), "a band stands as its picture does");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using vistrel::CardScroller;
  static const auto pixels = std::make_shared<const std::vector<std::uint8_t>>(mostBytes);
  fuzz::Input input(bytes, size);
  const auto choices = input.take<std::uint8_t>();
  CGPixelFormat format;
  if (choices & 1) format = {8, 8, CGColorSpace::DeviceGray, kCGImageAlphaNone};
  const auto orientation = UIImageOrientation(choices >> 1 & 7);
  const int pixelBytes = int(format.bytesPerPixel());
  const int width = input.takeFrom(1, longestSide);
  const int height = input.takeFrom(1, std::min(longestSide, mostBytes / pixelBytes / width));
  const int padding = input.takeFrom(0, mostBytes / height - width * pixelBytes);
  const CGImageRef image =
      CGImage::create(width, height, format, std::size_t(width * pixelBytes + padding), pixels);
  const auto number = [&input] { return input.take<CGFloat>(); };
  const CGRect rect{{number(), number()}, {number(), number()}};  // Braces take them in order.
  checkCrop(image, rect);

  const auto seen = UIImage::imageWithCGImage(image, number(), orientation);
  checkBand(CardScroller::cropImage(seen, rect), *seen);
  setDisplay(std::make_shared<WindowDisplay>(CGSize{number(), number()}, number()));
  vistrel::screenWidth = number();
  const float point = number();
  for (auto band : {CardScroller::topImage, CardScroller::bottomImage, CardScroller::middleImage,
                    CardScroller::topMiddleImage, CardScroller::bottomMiddleImage})
    checkBand(band(seen, point), *seen);
  return 0;
}
