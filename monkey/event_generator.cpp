#include "monkey/event_generator.h"

#include <fmt/format.h>

#include "monkey/setting_values.h"
#include "tests/support/test_device.h"

namespace monkey {
namespace {

constexpr int percentInBetween = 6;  // Of events that fall into a gesture which then goes on.
constexpr int fingers = 3;
constexpr float frame = 1.0f / 60;

/// Small models more often: what is at stake does not grow with the pixels, but the time does.
constexpr const char* models[] = {"iphone-3gs", "iphone-3gs", "iphone-3gs", "iphone-4", "iphone-5", "ipad"};

constexpr const char* orientations[] = {"PORTRAIT",       "PORTRAIT",        "PORTRAIT",
                                        "LANDSCAPE_LEFT", "LANDSCAPE_RIGHT", "PORTRAIT_UPSIDE_DOWN",
                                        "FACE_UP",        "FACE_DOWN"};
constexpr const char* files[] = {"preferences", "apps", "recents", "grab-picture", "home-picture"};
constexpr const char* faults[] = {"remove",       "restore",     "restore",    "restore",
                                  "spoil-folder", "spoil-empty", "spoil-noise"};

std::string bootLine(Dice& dice, const host::DeviceModel& model) {
  std::string line = "boot " + model.name;
  if (dice.chance(20)) line += " locked";
  if (dice.chance(60)) line += " names";
  if (dice.chance(85)) line += " activator";
  return line;
}

}  // namespace

EventGenerator::EventGenerator(std::uint64_t seed)
    : dice_(seed), model_(*host::findDeviceModel(dice_.oneOf(models))), boot_(bootLine(dice_, model_)) {}

std::string EventGenerator::next() {
  if (planned_.empty()) {
    plan();
  } else if (dice_.chance(percentInBetween)) {
    std::deque<std::string> rest;
    rest.swap(planned_);
    plan();
    planned_.insert(planned_.end(), rest.begin(), rest.end());
  }
  std::string line = std::move(planned_.front());
  planned_.pop_front();
  return line;
}

void EventGenerator::plan() {
  struct Choice {
    int weight;
    void (EventGenerator::*plan)();
  };
  static constexpr Choice choices[] = {
      {24, &EventGenerator::planEdgeSwipe},  {5, &EventGenerator::planTap},
      {12, &EventGenerator::planFinger},     {12, &EventGenerator::planWait},
      {8, &EventGenerator::planApplication}, {6, &EventGenerator::planButton},
      {2, &EventGenerator::planTurn},        {2, &EventGenerator::planKeyboard},
      {10, &EventGenerator::planActivator},  {8, &EventGenerator::planSetting},
      {1, &EventGenerator::planDisabledApp}, {1, &EventGenerator::planFault},
      {4, &EventGenerator::planLooks},       {4, &EventGenerator::planOrder}};
  static constexpr int total = [] {
    int sum = 0;
    for (const Choice& choice : choices) sum += choice.weight;
    return sum;
  }();
  int roll = dice_.below(total);
  auto choice = std::begin(choices);
  while (roll >= choice->weight) roll -= (choice++)->weight;
  (this->*choice->plan)();
}

// Fingers.

void EventGenerator::touch(const char* action, CGPoint point, int finger) {
  say(fmt::format("touch {} {} {} --finger {}", action, point.x, point.y, finger));
}

CGPoint EventGenerator::anywhere() {
  return {dice_.between(0, model_.size.width), dice_.between(0, model_.size.height)};
}

/// In from an edge, the left or the right one mostly, in a few moves; perhaps it rests, wanders about or goes
/// to an end of the screen before it lifts, is taken away or stays.
void EventGenerator::planEdgeSwipe() {
  constexpr float grabbed = 4;  // Points from the edge.
  const auto [width, height] = model_.size;
  const int finger = dice_.chance(90) ? 0 : dice_.below(fingers);
  constexpr float clearOfEnds = 90;
  CGPoint at = anywhere();
  if (dice_.chance(70)) at.y = dice_.between(clearOfEnds, height - clearOfEnds);
  const int edge = dice_.below(100);
  if (edge < 5) {
    at.y = 0;
  } else if (edge < 10) {
    at.y = height;
  } else if (edge < 35) {
    at.x = dice_.between(0, grabbed);
  } else {
    at.x = dice_.between(width - grabbed, width);
  }
  touch("down", at, finger);
  const CGPoint end = dice_.chance(60) ? CGPoint{dice_.between(0, width), at.y} : anywhere();
  const int moves = 1 + dice_.below(6);
  for (int move = 1; move <= moves; ++move) {
    const float share = static_cast<float>(move) / static_cast<float>(moves);
    pass(dice_.chance(50) ? frame : dice_.between(0, 0.1f));
    touch("move", {at.x + (end.x - at.x) * share, at.y + (end.y - at.y) * share}, finger);
  }
  CGPoint last = end;
  for (int wandering = dice_.below(4); wandering > 0; --wandering) {
    pass(dice_.between(0, 0.5f));
    last = anywhere();
    if (dice_.chance(30)) last.y = dice_.chance(50) ? 0 : height;
    touch("move", last, finger);
  }
  if (dice_.chance(80)) touch(dice_.chance(85) ? "up" : "cancel", last, finger);
}

void EventGenerator::planTap() {
  const CGPoint point = anywhere();
  const int finger = dice_.below(fingers);
  touch("down", point, finger);
  if (dice_.chance(50)) pass(dice_.between(0, 1));
  touch("up", point, finger);
}

void EventGenerator::planFinger() {
  static constexpr const char* actions[] = {"down", "down", "move", "move", "move", "up", "up", "cancel"};
  touch(dice_.oneOf(actions), anywhere(), dice_.below(fingers));
}

// Time.

void EventGenerator::pass(float seconds) { say(fmt::format("wait {}", seconds)); }

void EventGenerator::planWait() {
  constexpr float longest = 3;
  switch (dice_.below(4)) {
    case 0:
      return pass(frame);
    case 1:
      return pass(dice_.between(0, 0.6f));
    case 2:
      return pass(dice_.between(0, longest));
    default:
      return pass(longest);
  }
}

// The device.

void EventGenerator::planApplication() {
  const char* verb = dice_.chance(75) ? "launch" : "terminate";
  say(fmt::format("{} {}", verb, dice_.oneOf(vistrel::test::testBundles)));
}

void EventGenerator::planButton() {
  static constexpr const char* buttons[] = {"button HOME", "button HOME", "button LOCK", "unlock", "unlock"};
  say(dice_.oneOf(buttons));
}

void EventGenerator::planTurn() { say(fmt::format("rotate {}", dice_.oneOf(orientations))); }

void EventGenerator::planKeyboard() { say(dice_.chance(50) ? "keyboard show" : "keyboard hide"); }

void EventGenerator::planActivator() {
  static constexpr const char* kinds[] = {"receive", "receive", "abort", "deactivate"};
  say(fmt::format("activator {}", dice_.oneOf(kinds)));
}

// Files.

void EventGenerator::planSetting() {
  if (dice_.chance(10)) return say("notify-post com.zantric.vistrel.prefsChanged");
  const std::string key = randomSettingKey(dice_);
  say(fmt::format("set preferences {} {}", key, randomSettingValue(key, dice_)));
}

void EventGenerator::planDisabledApp() {
  const char* value = dice_.chance(25) ? "<true/>" : "<false/>";
  say(fmt::format("set apps ALValue-{} {}", dice_.oneOf(vistrel::test::testBundles), value));
}

/// Without somebody who does so a device soon stays locked, turned or broken.
void EventGenerator::planOrder() { say("put-in-order"); }

void EventGenerator::planFault() { say(fmt::format("{} {}", dice_.oneOf(faults), dice_.oneOf(files))); }

// Pictures.

/// The second look comes soon, when perhaps nothing has changed.
void EventGenerator::planLooks() {
  say("look");
  switch (dice_.below(3)) {
    case 0:
      planFinger();
      break;
    case 1:
      planActivator();
      break;
    default:
      break;
  }
  say("look");
}

}  // namespace monkey
