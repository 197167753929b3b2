#include "host/home_layout.h"

#include <cmath>

#include "host/device_pictures.h"

namespace host {
namespace {

constexpr HomeLayout phone{{320, 480}, 4, 4, 57, 76, 88, 32, 18, 11, 18, 91, 11};
constexpr HomeLayout tablet{{768, 1024}, 4, 5, 72, 172, 166, 74, 22, 14, 30, 122, 18};
constexpr int tallPhoneRows = 5;

/// Where a row of `count` icons, centred in `width`, has its icon `position`; on whole points, for sharp
/// pictures.
CGFloat iconLeft(const HomeLayout& layout, int position, int count, CGFloat width) {
  const CGFloat row = layout.columnPitch * static_cast<CGFloat>(count - 1) + layout.iconSize;
  return std::floor((width - row) / 2) + layout.columnPitch * static_cast<CGFloat>(position);
}

/// The frame around an icon and its name, which may be as wide as the columns lie apart.
CGRect frameAround(const HomeLayout& layout, CGFloat iconLeft, CGFloat iconTop) {
  const CGFloat margin = std::floor((layout.columnPitch - layout.iconSize) / 2);
  return {{iconLeft - margin, iconTop}, {layout.iconSize + 2 * margin, layout.iconSize + layout.nameHeight}};
}

}  // namespace

CGRect HomeLayout::iconFrame(int position) const {
  const CGFloat left = iconLeft(*this, position % columns, columns, screen.width);
  return frameAround(*this, left, top + rowPitch * static_cast<CGFloat>(position / columns));
}

CGRect HomeLayout::dockIconFrame(int position, int count) const {
  return frameAround(*this, iconLeft(*this, position, count, screen.width), dockIconInset);
}

HomeLayout homeLayout(const DeviceModel& model) {
  HomeLayout layout = isTablet(model) ? tablet : phone;
  layout.screen = model.size;
  if (isTallPhone(model)) layout.rows = tallPhoneRows;
  return layout;
}

}  // namespace host
