#include "monkey/event_generator.h"

#include <fmt/format.h>

#include "monkey/device_files.h"
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
constexpr const char* fileChanges[] = {"remove",       "restore",     "restore",    "restore",
                                       "spoil-folder", "spoil-empty", "spoil-noise"};

std::string bootLine(Random& random, const host::DeviceModel& model) {
  std::string line = "boot " + model.name;
  if (random.chance(20)) line += " locked";
  if (random.chance(60)) line += " names";
  if (random.chance(85)) line += " activator";
  return line;
}

}  // namespace

EventGenerator::EventGenerator(std::uint64_t seed)
    : random_(seed),
      model_(*host::findDeviceModel(random_.oneOf(models))),
      boot_(bootLine(random_, model_)) {}

std::string EventGenerator::next() {
  if (planned_.empty()) {
    plan();
  } else if (random_.chance(percentInBetween)) {
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
      {1, &EventGenerator::planDisabledApp}, {1, &EventGenerator::planFileChange},
      {4, &EventGenerator::planLooks},       {4, &EventGenerator::planOrder}};
  static constexpr int total = [] {
    int sum = 0;
    for (const Choice& choice : choices) sum += choice.weight;
    return sum;
  }();
  int roll = random_.below(total);
  auto choice = std::begin(choices);
  while (roll >= choice->weight) roll -= (choice++)->weight;
  (this->*choice->plan)();
}

// Fingers.

void EventGenerator::touch(const char* action, CGPoint point, int finger) {
  say(fmt::format("touch {} {} {} --finger {}", action, point.x, point.y, finger));
}

// One choice a statement throughout: the order of a call's arguments is the compiler's.

CGPoint EventGenerator::anywhere() {
  const float x = random_.between(0, model_.size.width);
  const float y = random_.between(0, model_.size.height);
  return {x, y};
}

/// Mostly where a swipe can open the switcher, at the right edge more often than at the left one.
CGPoint EventGenerator::atAnEdge() {
  constexpr float grabbed = 4;       // Points from the edge.
  constexpr float clearOfEnds = 90;  // Points from top and bottom.
  constexpr int percentClear = 70, percentTop = 5, percentBottom = 5, percentLeft = 25;
  const auto [width, height] = model_.size;
  CGPoint point = anywhere();
  if (random_.chance(percentClear)) point.y = random_.between(clearOfEnds, height - clearOfEnds);
  const int edge = random_.below(100);
  if (edge < percentTop) {
    point.y = 0;
  } else if (edge < percentTop + percentBottom) {
    point.y = height;
  } else if (edge < percentTop + percentBottom + percentLeft) {
    point.x = random_.between(0, grabbed);
  } else {
    point.x = random_.between(width - grabbed, width);
  }
  return point;
}

void EventGenerator::pull(int finger, CGPoint from, CGPoint to) {
  const int moves = 1 + random_.below(6);
  for (int move = 1; move <= moves; ++move) {
    const float share = static_cast<float>(move) / static_cast<float>(moves);
    pass(random_.chance(50) ? frame : random_.between(0, 0.1f));
    touch("move", {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share}, finger);
  }
}

/// Up to three times it rests and goes elsewhere, now and then to an end of the screen.
CGPoint EventGenerator::wander(int finger, CGPoint from) {
  constexpr int percentToAnEnd = 30;
  CGPoint last = from;
  for (int times = random_.below(4); times > 0; --times) {
    pass(random_.between(0, 0.5f));
    last = anywhere();
    if (random_.chance(percentToAnEnd)) last.y = random_.chance(50) ? 0 : model_.size.height;
    touch("move", last, finger);
  }
  return last;
}

/// In from an edge; in the end the finger lifts, is taken away or stays.
void EventGenerator::planEdgeSwipe() {
  constexpr int percentFirstFinger = 90, percentLevel = 60, percentGone = 80, percentLifted = 85;
  const int finger = random_.chance(percentFirstFinger) ? 0 : random_.below(fingers);
  const CGPoint from = atAnEdge();
  CGPoint to = anywhere();
  if (random_.chance(percentLevel)) to.y = from.y;
  touch("down", from, finger);
  pull(finger, from, to);
  const CGPoint last = wander(finger, to);
  if (!random_.chance(percentGone)) return;
  touch(random_.chance(percentLifted) ? "up" : "cancel", last, finger);
}

void EventGenerator::planTap() {
  const CGPoint point = anywhere();
  const int finger = random_.below(fingers);
  touch("down", point, finger);
  if (random_.chance(50)) pass(random_.between(0, 1));
  touch("up", point, finger);
}

void EventGenerator::planFinger() {
  static constexpr const char* actions[] = {"down", "down", "move", "move", "move", "up", "up", "cancel"};
  const char* action = random_.oneOf(actions);
  const CGPoint point = anywhere();
  touch(action, point, random_.below(fingers));
}

// Time.

void EventGenerator::pass(float seconds) { say(fmt::format("wait {}", seconds)); }

void EventGenerator::planWait() {
  constexpr float longest = 3;
  switch (random_.below(4)) {
    case 0:
      return pass(frame);
    case 1:
      return pass(random_.between(0, 0.6f));
    case 2:
      return pass(random_.between(0, longest));
    default:
      return pass(longest);
  }
}

// The device.

void EventGenerator::planApplication() {
  const char* verb = random_.chance(75) ? "launch" : "terminate";
  say(fmt::format("{} {}", verb, random_.oneOf(vistrel::test::testBundles)));
}

void EventGenerator::planButton() {
  static constexpr const char* buttons[] = {"button HOME", "button HOME", "button LOCK", "unlock", "unlock"};
  say(random_.oneOf(buttons));
}

void EventGenerator::planTurn() { say(fmt::format("rotate {}", random_.oneOf(orientations))); }

void EventGenerator::planKeyboard() { say(random_.chance(50) ? "keyboard show" : "keyboard hide"); }

void EventGenerator::planActivator() {
  static constexpr const char* kinds[] = {"receive", "receive", "abort", "deactivate"};
  say(fmt::format("activator {}", random_.oneOf(kinds)));
}

// Files.

void EventGenerator::planSetting() {
  if (random_.chance(10)) return say("notify-post com.zantric.vistrel.prefsChanged");
  const std::string key = randomSettingKey(random_);
  say(fmt::format("set preferences {} {}", key, randomSettingValue(key, random_)));
}

void EventGenerator::planDisabledApp() {
  const char* value = random_.chance(25) ? "<true/>" : "<false/>";
  say(fmt::format("set apps ALValue-{} {}", random_.oneOf(vistrel::test::testBundles), value));
}

/// Without somebody who does so a device soon stays locked, turned or broken.
void EventGenerator::planOrder() { say("put-in-order"); }

void EventGenerator::planFileChange() {
  const char* change = random_.oneOf(fileChanges);
  say(fmt::format("{} {}", change, random_.oneOf(deviceFiles()).name));
}

// Pictures.

/// The second look comes soon, when perhaps nothing has changed.
void EventGenerator::planLooks() {
  say("look");
  switch (random_.below(3)) {
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
