#include "platform/uikit/ui_image.h"

#include <algorithm>

#include "platform/coregraphics/image_codec.h"
#include "platform/foundation/file_manager.h"
#include "platform/uikit/ui_screen.h"

namespace {

constexpr std::string_view doubleScaleSuffix = "@2x";
constexpr CGFloat doubleScale = 2;
constexpr int uprightExif = 1;
constexpr int lastExif = 8;

/// Where a file's name ends and its extension, dot included, begins.
std::size_t extensionStart(const std::string& path) {
  auto slash = path.rfind('/');
  auto dot = path.rfind('.');
  bool dotIsInName = dot != std::string::npos && (slash == std::string::npos || dot > slash);
  return dotIsInName ? dot : path.size();
}

bool isDoubleScaleName(const std::string& path) {
  return std::string_view(path).substr(0, extensionStart(path)).ends_with(doubleScaleSuffix);
}

/// The file that stands for `path` on this screen.
std::string fileForScreen(const std::string& path) {
  if (UIScreen::mainScreen().scale() != doubleScale || isDoubleScaleName(path)) return path;
  std::string large = path;
  large.insert(extensionStart(path), doubleScaleSuffix);
  return NSFileManager::defaultManager().fileExists(large) ? large : path;
}

UIImageOrientation orientationOfExif(int exif) {
  using enum UIImageOrientation;
  static constexpr UIImageOrientation byExif[] = {Up,           UpMirrored, Down,          DownMirrored,
                                                  LeftMirrored, Right,      RightMirrored, Left};
  return exif < uprightExif || exif > lastExif ? Up : byExif[exif - uprightExif];
}

/// True where the picture is seen with its rows standing.
bool isOnItsSide(UIImageOrientation orientation) {
  using enum UIImageOrientation;
  return orientation == Left || orientation == Right || orientation == LeftMirrored ||
         orientation == RightMirrored;
}

struct Pixel {
  int x, y;
};

/// Which stored pixel of a `width` by `height` picture is seen at (x, y).
Pixel storedPixel(UIImageOrientation orientation, int x, int y, int width, int height) {
  using enum UIImageOrientation;
  const int right = width - 1, bottom = height - 1;
  switch (orientation) {
    case Down:
      return {right - x, bottom - y};
    case Left:
      return {right - y, x};
    case Right:
      return {y, bottom - x};
    case UpMirrored:
      return {right - x, y};
    case DownMirrored:
      return {x, bottom - y};
    case LeftMirrored:
      return {y, x};
    case RightMirrored:
      return {right - y, bottom - x};
    case Up:
      break;
  }
  return {x, y};
}

}  // namespace

std::shared_ptr<UIImage> UIImage::imageWithCGImage(CGImageRef image) {
  return imageWithCGImage(std::move(image), 1, UIImageOrientation::Up);
}

std::shared_ptr<UIImage> UIImage::imageWithCGImage(CGImageRef image, CGFloat scale,
                                                   UIImageOrientation orientation) {
  return image ? std::make_shared<UIImage>(std::move(image), scale, orientation) : nullptr;
}

std::shared_ptr<UIImage> UIImage::imageWithContentsOfFile(const std::string& devicePath) {
  const std::string file = fileForScreen(devicePath);
  auto data = NSFileManager::defaultManager().contents(file);
  if (!data) return nullptr;
  int exif = uprightExif;
  CGImageRef image = decodeImage(*data, &exif);
  return imageWithCGImage(std::move(image), isDoubleScaleName(file) ? doubleScale : 1,
                          orientationOfExif(exif));
}

CGSize UIImage::size() const {
  if (!image_) return CGSizeZero;
  CGSize stored{CGFloat(image_->width()) / scale_, CGFloat(image_->height()) / scale_};
  return isOnItsSide(orientation_) ? CGSize{stored.height, stored.width} : stored;
}

CGImageRef UIImage::uprightCGImage() const {
  if (!image_ || orientation_ == UIImageOrientation::Up) return image_;
  const CGImageRef stored = CGImage::inScreenFormat(image_);
  int width = stored->width(), height = stored->height();
  if (isOnItsSide(orientation_)) std::swap(width, height);

  const std::size_t pixelBytes = stored->format().bytesPerPixel(), rowBytes = std::size_t(width) * pixelBytes;
  auto pixels = std::make_shared<std::vector<std::uint8_t>>(rowBytes * std::size_t(height));
  auto out = pixels->begin();
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      Pixel from = storedPixel(orientation_, x, y, stored->width(), stored->height());
      out = std::copy_n(stored->row(from.y) + std::size_t(from.x) * pixelBytes, pixelBytes, out);
    }
  }
  return CGImage::create(width, height, stored->format(), rowBytes, std::move(pixels));
}

NSData UIImageJPEGRepresentation(const std::shared_ptr<UIImage>& image, CGFloat quality) {
  return image ? encodeJpeg(image->uprightCGImage(), quality) : NSData();
}
