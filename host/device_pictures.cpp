#include "host/device_pictures.h"

#include <vector>

#include "host/placeholder.h"
#include "platform/coregraphics/image_codec.h"
#include "platform/foundation/file_manager.h"

namespace host {
namespace {

constexpr const char* doubleScale = "@2x";

/// What stands between a picture's name and its ".png", the fittest variant first.
std::vector<std::string> variants(const DeviceModel& model, PictureShape shape) {
  const bool upright = shape == PictureShape::Portrait;
  const std::string side = upright ? "" : "-Landscape";
  std::vector<std::string> result;
  if (isTablet(model)) {
    if (upright) result.push_back("-Portrait~ipad");
    result.push_back(side + "~ipad");
  }
  if (isTallPhone(model)) result.push_back(side + "-568h" + doubleScale);
  const std::string sharp = side + doubleScale;
  const bool prefersSharp = model.scale > 1;
  result.push_back(prefersSharp ? sharp : side);
  result.push_back(prefersSharp ? side : sharp);
  return result;
}

}  // namespace

std::shared_ptr<UIImage> pictureForDevice(const std::string& devicePath, const DeviceModel& model,
                                          PictureShape shape) {
  for (const std::string& variant : variants(model, shape)) {
    const auto data = NSFileManager::defaultManager().contents(devicePath + variant + ".png");
    CGImageRef picture = data ? decodeImage(*data) : nullptr;
    if (picture)
      return UIImage::imageWithCGImage(picture, variant.ends_with(doubleScale) ? 2.0f : 1.0f,
                                       UIImageOrientation::Up);
  }
  return nullptr;
}

std::shared_ptr<UIImage> wallpaper(const std::string& name, const DeviceModel& model) {
  auto picture = pictureForDevice("/Library/Wallpaper/" + name, model, PictureShape::Portrait);
  return picture ? picture : placeholderWallpaper(model.size, model.scale);
}

}  // namespace host
