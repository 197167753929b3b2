#pragma once

/// How the device is held.
enum class UIDeviceOrientation {
  Unknown = 0,
  Portrait = 1,
  PortraitUpsideDown = 2,
  LandscapeLeft = 3,   ///< The device's top to the left.
  LandscapeRight = 4,  ///< The device's top to the right.
  FaceUp = 5,
  FaceDown = 6,
};

/// How an interface stands on the screen; by number the device orientation in which it is upright.
enum class UIInterfaceOrientation {
  Portrait = 1,
  PortraitUpsideDown = 2,
  LandscapeRight = 3,
  LandscapeLeft = 4,
};

/// Both kinds of numbers agree on what lies on its side.
constexpr bool UIInterfaceOrientationIsLandscape(UIInterfaceOrientation orientation) {
  return orientation == UIInterfaceOrientation::LandscapeRight ||
         orientation == UIInterfaceOrientation::LandscapeLeft;
}
constexpr bool UIInterfaceOrientationIsPortrait(UIInterfaceOrientation orientation) {
  return orientation == UIInterfaceOrientation::Portrait ||
         orientation == UIInterfaceOrientation::PortraitUpsideDown;
}
