#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "host/device_model.h"
#include "platform/uikit/ui_image.h"
#include "platform/uikit/ui_orientation.h"

namespace host {

/// One folder of /Applications: what its Info.plist says, and the pictures that lie in it.
class ApplicationBundle {
 public:
  /// Reads the Info.plist of the bundle at `folder` (a device path). Throws Failure, whose text is the cause
  /// alone, when it is unreadable, names no identifier or has too long a name. The pictures are read when
  /// they are asked for.
  ApplicationBundle(std::string folder, const DeviceModel& model);

  const std::string& identifier() const { return identifier_; }
  const std::string& name() const { return name_; }
  bool supports(UIInterfaceOrientation orientation) const { return orientations_.contains(orientation); }

  static constexpr std::uint32_t largestIcon = 1024;  ///< Pixels a side; a larger picture is no icon.
  /// The icon file that suits the home screen best, or a drawn icon; never null. `points` is its width there.
  std::shared_ptr<UIImage> loadIcon(CGFloat points) const;
  /// The launch picture for an interface of that orientation, or a drawn screen; never null.
  std::shared_ptr<UIImage> loadLaunchPicture(UIInterfaceOrientation orientation) const;

 private:
  std::string folder_;
  DeviceModel model_;
  std::string identifier_;
  std::string name_;
  std::vector<std::string> iconFiles_;  // That may be there.
  std::set<UIInterfaceOrientation> orientations_;
};

}  // namespace host
