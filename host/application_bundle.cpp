#include "host/application_bundle.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "host/device_pictures.h"
#include "host/failure.h"
#include "host/placeholder.h"
#include "platform/coregraphics/image_codec.h"
#include "platform/foundation/file_manager.h"
#include "platform/foundation/property_list.h"

namespace host {
namespace {

constexpr std::size_t longestName = 255;  // Bytes, of identifiers too.

constexpr const char* defaultIcon = "Icon";
constexpr const char* pictureEnding = ".png";
constexpr std::size_t mostIconFiles = 20;  // Each may have to be decoded to be compared.

constexpr std::pair<const char*, UIInterfaceOrientation> orientationNames[] = {
    {"UIInterfaceOrientationPortrait", UIInterfaceOrientation::Portrait},
    {"UIInterfaceOrientationPortraitUpsideDown", UIInterfaceOrientation::PortraitUpsideDown},
    {"UIInterfaceOrientationLandscapeLeft", UIInterfaceOrientation::LandscapeLeft},
    {"UIInterfaceOrientationLandscapeRight", UIInterfaceOrientation::LandscapeRight},
};

/// Empty when the key is missing or holds something else.
std::string stringValue(const PropertyListDictionary& info, const char* key) {
  const PropertyList* value = find(info, key);
  const auto* text = value ? value->as<std::string>() : nullptr;
  return text ? *text : "";
}

/// Whoever asks is told all identifiers and names at once.
void requireShort(const std::string& text, const char* what) {
  if (text.size() > longestName) throw Failure(fmt::format("{} is longer than {} bytes", what, longestName));
}

/// The strings of an array; what is no string is left out.
std::vector<std::string> stringValues(const PropertyListDictionary& info, const char* key) {
  std::vector<std::string> result;
  const PropertyList* value = find(info, key);
  const auto* array = value ? value->as<PropertyListArray>() : nullptr;
  if (!array) return result;
  for (const PropertyList& entry : *array)
    if (const auto* text = entry.as<std::string>()) result.push_back(*text);
  return result;
}

std::set<UIInterfaceOrientation> orientationValues(const PropertyListDictionary& info,
                                                   const DeviceModel& model) {
  constexpr const char* phoneKey = "UISupportedInterfaceOrientations";
  constexpr const char* tabletKey = "UISupportedInterfaceOrientations~ipad";
  const bool hasTabletList = isTablet(model) && find(info, tabletKey);
  std::set<UIInterfaceOrientation> result;
  for (const std::string& listed : stringValues(info, hasTabletList ? tabletKey : phoneKey))
    for (const auto& [name, orientation] : orientationNames)
      if (listed == name) result.insert(orientation);
  return result.empty() ? std::set{UIInterfaceOrientation::Portrait} : result;
}

/// The file as listed, and beside it its double-scale sister.
std::vector<std::string> iconCandidates(const std::string& listed) {
  const bool hasEnding = listed.ends_with(pictureEnding);
  const std::string stem =
      hasEnding ? listed.substr(0, listed.size() - std::string(pictureEnding).size()) : listed;
  return {stem + pictureEnding, stem + "@2x" + pictureEnding};
}

/// The files of all the listed ones, each once.
std::vector<std::string> iconFiles(const std::vector<std::string>& listed) {
  std::vector<std::string> files;
  for (const std::string& name : listed) {
    for (const std::string& file : iconCandidates(name)) {
      if (files.size() == mostIconFiles) return files;
      if (std::ranges::find(files, file) == files.end()) files.push_back(file);
    }
  }
  return files;
}

/// Exact beats larger, larger beats smaller, nearer beats farther.
bool isFitter(int width, int than, int wanted) {
  const bool largeEnough = width >= wanted, otherLargeEnough = than >= wanted;
  return largeEnough != otherLargeEnough ? largeEnough : std::abs(width - wanted) < std::abs(than - wanted);
}

}  // namespace

ApplicationBundle::ApplicationBundle(std::string folder, const DeviceModel& model)
    : folder_(std::move(folder)), model_(model) {
  const auto info = dictionaryWithContentsOfFile(folder_ + "/Info.plist");
  if (!info) throw Failure("not a readable property list");
  identifier_ = stringValue(*info, "CFBundleIdentifier");
  if (identifier_.empty()) throw Failure("no CFBundleIdentifier");
  requireShort(identifier_, "CFBundleIdentifier");

  name_ = stringValue(*info, "CFBundleDisplayName");
  if (name_.empty()) name_ = stringValue(*info, "CFBundleName");
  if (name_.empty()) name_ = std::filesystem::path(folder_).stem().string();
  requireShort(name_, "the name");
  // A name is one line, wherever it is shown or listed.
  std::ranges::replace_if(
      name_, [](unsigned char character) { return std::iscntrl(character) != 0; }, ' ');

  std::vector<std::string> icons = stringValues(*info, "CFBundleIconFiles");
  if (const std::string single = stringValue(*info, "CFBundleIconFile"); !single.empty())
    icons.push_back(single);
  if (icons.empty()) icons.push_back(defaultIcon);
  iconFiles_ = iconFiles(icons);
  orientations_ = orientationValues(*info, model);
}

std::shared_ptr<UIImage> ApplicationBundle::loadIcon(CGFloat points) const {
  const int wanted = static_cast<int>(std::lround(points * model_.scale));
  CGImageRef best;
  for (const std::string& file : iconFiles_) {
    const auto data = NSFileManager::defaultManager().contents(folder_ + "/" + file);
    const CGImageRef icon = data ? decodeImage(*data, nullptr, largestIcon) : nullptr;
    if (icon && (!best || isFitter(icon->width(), best->width(), wanted))) best = icon;
  }
  if (!best) return placeholderIcon(name_, points, model_.scale);
  return UIImage::imageWithCGImage(best, static_cast<CGFloat>(best->width()) / points,
                                   UIImageOrientation::Up);
}

std::shared_ptr<UIImage> ApplicationBundle::loadLaunchPicture(UIInterfaceOrientation orientation) const {
  const bool onItsSide = UIInterfaceOrientationIsLandscape(orientation);
  const auto shape = onItsSide ? PictureShape::Landscape : PictureShape::Portrait;
  if (auto picture = pictureForDevice(folder_ + "/Default", model_, shape)) return picture;
  const CGSize upright = model_.size;
  const CGSize size = onItsSide ? CGSize{upright.height, upright.width} : upright;
  return placeholderScreen(name_, size, model_.scale);
}

}  // namespace host
