#pragma once

#include <memory>
#include <string>

#include "host/device_model.h"
#include "platform/uikit/ui_image.h"

/// Picture files that come in one variant a device: launch pictures and wallpapers.
namespace host {

inline constexpr CGFloat tabletWidth = 768;  ///< Points; screens from here on are a tablet's.
inline constexpr CGFloat tallPhoneHeight = 568;

inline bool isTablet(const DeviceModel& model) { return model.size.width >= tabletWidth; }
inline bool isTallPhone(const DeviceModel& model) { return model.size.height == tallPhoneHeight; }
inline CGRect screenRect(const DeviceModel& model) { return {{0, 0}, model.size}; }

enum class PictureShape { Portrait, Landscape };

/// The picture `devicePath` (without its ".png") in the variant made for this device and shape, or else in
/// the nearest one of that shape; null when there is none that can be read.
std::shared_ptr<UIImage> pictureForDevice(const std::string& devicePath, const DeviceModel& model,
                                          PictureShape shape);

/// The wallpaper of that name ("Home", "Lock") from /Library/Wallpaper, a drawn one where it is missing.
std::shared_ptr<UIImage> wallpaper(const std::string& name, const DeviceModel& model);

}  // namespace host
