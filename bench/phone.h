#pragma once

#include "tests/support/test_device.h"

namespace bench {

/// A device at 2x with five applications in the switcher, whose icons and names grow.
class Phone {
 public:
  static constexpr double frame = 1.0 / 60;  ///< Seconds.

  explicit Phone(PropertyListDictionary preferences = {});

  vistrel::test::TestDevice& device() { return device_; }

  /// By an Activator event; the opening's animation has begun.
  void open();
  /// With a finger, which stays on the middle icon; the switcher has opened.
  void openOnMiddleIcon();
  /// Nothing when it is closed.
  void close();

  // Each moves something by a pixel, there and back: the next frame has all of the screen to draw.
  void nudgeBands();      ///< Of the open switcher.
  void nudgeWallpaper();  ///< Of what lies below the switcher.

 private:
  /// By how much this time, in points.
  CGFloat nudge();

  vistrel::test::TestDevice device_;
  bool nudged_ = false;
};

/// The middle of the screen, in points, where the switcher is opened.
inline constexpr float middle = 240;

double secondsOfFrame();

}  // namespace bench
