#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace monkey {

/// A file of the device that events write or damage.
struct DeviceFile {
  std::string_view name;  ///< As an event calls it.
  std::string path;       ///< On the device.
};

/// preferences, apps, recents, grab-picture, home-picture.
const std::vector<DeviceFile>& deviceFiles();
/// The file of that name, or null.
const DeviceFile* findDeviceFile(std::string_view name);

}  // namespace monkey
