#include "host/orientation_names.h"

#include <utility>

namespace host {
namespace {

constexpr std::pair<std::string_view, UIDeviceOrientation> names[] = {
    {"PORTRAIT", UIDeviceOrientation::Portrait},
    {"PORTRAIT_UPSIDE_DOWN", UIDeviceOrientation::PortraitUpsideDown},
    {"LANDSCAPE_LEFT", UIDeviceOrientation::LandscapeLeft},
    {"LANDSCAPE_RIGHT", UIDeviceOrientation::LandscapeRight},
    {"FACE_UP", UIDeviceOrientation::FaceUp},
    {"FACE_DOWN", UIDeviceOrientation::FaceDown},
};

}  // namespace

std::optional<UIDeviceOrientation> orientationNamed(std::string_view name) {
  for (auto& [word, orientation] : names) {
    if (word == name) return orientation;
  }
  return std::nullopt;
}

std::string_view nameOf(UIDeviceOrientation orientation) {
  for (auto& [word, named] : names) {
    if (named == orientation) return word;
  }
  return "UNKNOWN";
}

}  // namespace host
