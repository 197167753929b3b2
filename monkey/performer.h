#pragma once

#include <map>
#include <optional>
#include <string>

#include "monkey/event.h"
#include "monkey/screen_watch.h"
#include "tests/support/test_device.h"

namespace monkey {

/// A device that lives through events. What cannot be done at the moment is not done, silently.
class Performer {
 public:
  explicit Performer(const BootEvent& boot);

  /// Throws InvariantViolation when a look sees something wrong.
  void perform(const Event& event);

  vistrel::test::TestDevice& device() { return device_; }
  const ScreenWatch& watch() const { return watch_; }

 private:
  void run(const host::ScriptCommand& command);
  void run(const SetEvent& event);
  void run(const FileEvent& event);
  void run(const PutInOrderEvent&);
  void run(const LookEvent&) { watch_.look(); }

  vistrel::test::TestDevice device_;
  std::map<const DeviceFile*, std::optional<std::string>> contentsAtBoot_;  // Nothing: there was no file.
  ScreenWatch watch_;
};

}  // namespace monkey
