#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "host/script_command.h"
#include "monkey/screen_watch.h"
#include "tests/support/test_device.h"

namespace monkey {

/// Makes a device live through events. What cannot be done just now is not done: nobody is there to be told.
///
/// Besides the script's verbs a line may say
///   set FILE KEY XML      writes a value into a property list; of preferences or apps, posts the change
///   remove FILE · spoil-folder FILE · spoil-empty FILE · spoil-noise FILE · restore FILE
///                         FILE is one of preferences, apps, recents, grab-picture, home-picture
///   put-in-order          lifts every finger, restores every file, and has the device upright and unlocked
///   look                  draws the screen and holds the picture against what it must be
class Performer {
 public:
  /// Boots the device that the line describes.
  explicit Performer(const std::string& bootLine);

  /// Throws Broken when a look sees something wrong.
  void perform(const std::string& line);

  vistrel::test::TestDevice& device() { return device_; }
  const ScreenWatch& watch() const { return watch_; }

 private:
  void performScript(std::string_view line);
  void set(const std::string& file, const std::string& key, const std::string& xml);
  void putInOrder();
  void spoil(const std::string& fault, const std::string& file);

  vistrel::test::TestDevice device_;
  std::map<std::string, std::optional<std::string>> pristine_;  // Contents by file; nothing: no file.
  ScreenWatch watch_;
};

}  // namespace monkey
