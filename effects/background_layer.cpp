#include "effects/background_layer.h"

#include "prefs/settings.h"

namespace vistrel {

std::shared_ptr<CAGradientLayer> BackgroundLayer::blueGradient() {
  auto gradient = CAGradientLayer::layer();
  gradient->setColors({settings.topColor.cgColor(), settings.bottomColor.cgColor()});
  gradient->setLocations({0.0f, 1.0f});
  return gradient;
}

std::shared_ptr<CAGradientLayer> BackgroundLayer::greyGradient() {
  const CGColor top = settings.topColor.cgColor();
  const CGColor bottom = settings.bottomColor.cgColor();
  auto gradient = CAGradientLayer::layer();
  gradient->setColors({top, bottom, bottom, bottom});
  gradient->setLocations({0.0f, 0.02f, 0.99f, 1.0f});
  return gradient;
}

}  // namespace vistrel
