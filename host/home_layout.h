#pragma once

#include "host/device_model.h"

namespace host {

/// Where things lie on the home screen of a device; points, portrait screen coordinates.
struct HomeLayout {
  CGSize screen;
  int columns, rows;    ///< Of icons on a page.
  CGFloat iconSize;     ///< Width and height of an icon's picture.
  CGFloat columnPitch;  ///< From one icon to the next.
  CGFloat rowPitch;
  CGFloat top;         ///< Of the first row's icons.
  CGFloat nameHeight;  ///< Of the line below an icon.
  CGFloat nameFontSize;
  CGFloat dotsHeight;  ///< Of the line of page dots above the dock.
  CGFloat dockHeight;
  CGFloat dockIconInset;  ///< From the dock's upper edge to its icons.

  int iconsOnPage() const { return columns * rows; }
  CGFloat dockTop() const { return screen.height - dockHeight; }
  /// What an icon and its name take up: `position` counts along the rows. In its page's coordinates.
  CGRect iconFrame(int position) const;
  /// The same in the dock, in its coordinates, when `count` icons share it.
  CGRect dockIconFrame(int position, int count) const;
};

inline constexpr int dockCapacity = 4;

HomeLayout homeLayout(const DeviceModel& model);

}  // namespace host
