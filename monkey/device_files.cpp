#include "monkey/device_files.h"

#include <algorithm>

#include "prefs/preference_files.h"
#include "switcher/device_paths.h"

namespace monkey {

const std::vector<DeviceFile>& deviceFiles() {
  static const std::vector<DeviceFile> files{
      {"preferences", vistrel::preferencesPath},
      {"apps", vistrel::appsPath},
      {"recents", "/var/mobile/Library/Preferences/com.apple.springboard.plist"},
      {"grab-picture", vistrel::grabImagePath},
      {"home-picture", vistrel::homeScreenPicturePath},
  };
  return files;
}

const DeviceFile* findDeviceFile(std::string_view name) {
  const auto found = std::ranges::find(deviceFiles(), name, &DeviceFile::name);
  return found == deviceFiles().end() ? nullptr : &*found;
}

}  // namespace monkey
