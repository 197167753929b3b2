#pragma once

#include <deque>
#include <string>

#include "host/device_model.h"
#include "monkey/random.h"
#include "platform/coregraphics/cg_geometry.h"

namespace monkey {

/// What happens to a device, made up from a seed: gestures, and all that may come between their moves.
///
/// It knows nothing of what becomes of its events: whether there is anything to terminate or to unlock, or a
/// finger to lift, is left to chance.
class EventGenerator {
 public:
  explicit EventGenerator(std::uint64_t seed);

  /// The line that boots the device.
  const std::string& boot() const { return boot_; }
  /// The next event's line.
  std::string next();

 private:
  void say(std::string line) { planned_.push_back(std::move(line)); }
  void touch(const char* action, CGPoint point, int finger);
  void pass(float seconds);
  CGPoint anywhere();
  CGPoint atAnEdge();
  void pull(int finger, CGPoint from, CGPoint to);
  /// Where the finger is in the end.
  CGPoint wander(int finger, CGPoint from);

  // Each plans one event or several that belong together.
  void plan();
  void planEdgeSwipe();
  void planTap();
  void planFinger();
  void planWait();
  void planApplication();
  void planButton();
  void planTurn();
  void planKeyboard();
  void planActivator();
  void planSetting();
  void planDisabledApp();
  void planFileChange();
  void planLooks();
  void planOrder();

  Random random_;
  const host::DeviceModel& model_;
  std::string boot_;
  std::deque<std::string> planned_;
};

}  // namespace monkey
