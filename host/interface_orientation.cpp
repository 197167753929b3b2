#include "host/interface_orientation.h"

namespace host {

std::optional<UIInterfaceOrientation> interfaceForDevice(UIDeviceOrientation orientation) {
  switch (orientation) {
    case UIDeviceOrientation::Portrait:
      return UIInterfaceOrientation::Portrait;
    case UIDeviceOrientation::PortraitUpsideDown:
      return UIInterfaceOrientation::PortraitUpsideDown;
    case UIDeviceOrientation::LandscapeLeft:
      return UIInterfaceOrientation::LandscapeRight;
    case UIDeviceOrientation::LandscapeRight:
      return UIInterfaceOrientation::LandscapeLeft;
    case UIDeviceOrientation::Unknown:
    case UIDeviceOrientation::FaceUp:
    case UIDeviceOrientation::FaceDown:
      break;
  }
  return std::nullopt;
}

CGSize interfaceSize(CGSize screen, UIInterfaceOrientation orientation) {
  return UIInterfaceOrientationIsLandscape(orientation) ? CGSize{screen.height, screen.width} : screen;
}

CGAffineTransform uprightTransform(UIInterfaceOrientation orientation) {
  // Quarter turns spelled out: the sines of a computed angle would not be whole.
  switch (orientation) {
    case UIInterfaceOrientation::Portrait:
      break;
    case UIInterfaceOrientation::PortraitUpsideDown:
      return {-1, 0, 0, -1, 0, 0};
    case UIInterfaceOrientation::LandscapeRight:
      return {0, 1, -1, 0, 0, 0};
    case UIInterfaceOrientation::LandscapeLeft:
      return {0, -1, 1, 0, 0, 0};
  }
  return CGAffineTransformIdentity;
}

}  // namespace host
