#include "host/script_parser.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "host/orientation_names.h"

namespace host {
namespace {

/// A command as text, every field of it.
struct Spelling {
  std::string operator()(const LaunchCommand& c) { return "launch " + c.bundle; }
  std::string operator()(const TerminateCommand& c) { return "terminate " + c.bundle; }
  std::string operator()(const ButtonCommand& c) { return c.button == Button::Home ? "home" : "lock"; }
  std::string operator()(const UnlockCommand&) { return "unlock"; }
  std::string operator()(const TapCommand& c) {
    return fmt::format("tap {},{} {}", c.point.x, c.point.y, c.duration);
  }
  std::string operator()(const SwipeCommand& c) {
    return fmt::format("swipe {},{} {},{} {} {}", c.from.x, c.from.y, c.to.x, c.to.y, c.duration, c.delta);
  }
  std::string operator()(const TouchCommand& c) {
    return fmt::format("touch {} {},{} {}", int(c.action), c.point.x, c.point.y, c.finger);
  }
  std::string operator()(const RotateCommand& c) { return fmt::format("rotate {}", nameOf(c.orientation)); }
  std::string operator()(const KeyboardCommand& c) { return c.show ? "show" : "hide"; }
  std::string operator()(const ActivatorCommand& c) { return fmt::format("activator {}", int(c.kind)); }
  std::string operator()(const NotifyPostCommand& c) { return "post " + c.name; }
  std::string operator()(const WaitCommand& c) { return fmt::format("wait {}", c.seconds); }
  std::string operator()(const ScreenshotCommand& c) { return "screenshot " + c.file.string(); }
  std::string operator()(const RecordVideoCommand& c) {
    return fmt::format("record {} {}", c.file.string(), c.scale);
  }
  std::string operator()(const RecordStopCommand&) { return "stop"; }
  std::string operator()(const DescribeAllCommand& c) {
    return fmt::format("describe {} {}", c.file ? c.file->string() : "-", c.presentation);
  }
  std::string operator()(const ListAppsCommand&) { return "list"; }
};

struct LineAndText {
  const char* line;
  const char* text;
};

TEST(ScriptParser, UnderstandsEveryVerb) {
  const LineAndText cases[] = {
      {"launch com.example.mail", "launch com.example.mail"},
      {"\tterminate  \"com.example.a b\"\r", "terminate com.example.a b"},
      {"button HOME", "home"},
      {"button LOCK # at night", "lock"},
      {"unlock", "unlock"},
      {"tap 10 20.5", "tap 10,20.5 0"},
      {"tap --duration 1.5 10 20", "tap 10,20 1.5"},
      {"swipe 319 240 100 240", "swipe 319,240 100,240 0.3 10"},
      {"swipe 1 2 -3 4e1 --delta 0.5 --duration 0", "swipe 1,2 -3,40 0 0.5"},
      {"touch down 1 2", "touch 0 1,2 0"},
      {"touch up -1 .5", "touch 2 -1,0.5 0"},
      {"touch cancel 1 2 --finger 9", "touch 3 1,2 9"},
      {"rotate LANDSCAPE_RIGHT", "rotate LANDSCAPE_RIGHT"},
      {"keyboard show", "show"},
      {"keyboard hide", "hide"},
      {"activator receive", "activator 0"},
      {"activator abort", "activator 1"},
      {"activator deactivate", "activator 2"},
      {"notify-post com.example.changed#1", "post com.example.changed#1"},
      {"wait 0.25", "wait 0.25"},
      {"screenshot \"# 1.png\"", "screenshot # 1.png"},
      {"record-video a.webp", "record a.webp 1"},
      {"record-video a.webp --scale 0.25", "record a.webp 0.25"},
      {"record-stop", "stop"},
      {"describe-all", "describe - false"},
      {"describe-all --presentation", "describe - true"},
      {"describe-all \"--odd.json\" --presentation", "describe --odd.json true"},
      {"list-apps", "list"},
  };
  for (auto& [line, text] : cases) {
    auto command = parseScriptLine(line);
    ASSERT_TRUE(command) << line;
    EXPECT_EQ(std::visit(Spelling(), *command), text) << line;
  }
  for (const char* line : {"", "  \t\r", "# launch nothing", "   # indented"}) {
    EXPECT_FALSE(parseScriptLine(line)) << line;
  }
}

TEST(ScriptParser, SaysWhatIsWrongWithALine) {
  const LineAndText cases[] = {
      {"foo", "unknown verb \"foo\""},
      {"Launch a", "unknown verb \"Launch\""},
      {"launch", "launch: too few arguments; usage: launch BUNDLE"},
      {"launch \"\"", "launch: BUNDLE must not be empty"},
      {"launch \"a", "quote not closed"},
      {"unlock now", "unlock: too many arguments; usage: unlock"},
      {"button home", "button: unknown word \"home\"; usage: button HOME|LOCK"},
      {"tap 1 a", "tap: Y is not a number: \"a\""},
      {"tap 1x 2", "tap: X is not a number: \"1x\""},
      {"tap inf 2", "tap: X is not a number: \"inf\""},
      {"tap 1 1e39", "tap: Y is out of range: \"1e39\""},
      {"tap 1 2 --duration", "tap: --duration needs a value; usage: tap X Y [--duration S]"},
      {"tap 1 2 --duration -1", "tap: duration must not be negative"},
      {"tap 1 2 --duration 1 --duration 2", "tap: --duration given twice"},
      {"tap 1 2 --delta 1", "tap: unknown option \"--delta\"; usage: tap X Y [--duration S]"},
      {"swipe 1 2 3 4 --delta 0", "swipe: delta must be above 0"},
      {"swipe 0 0 1e30 0", "swipe: more than 100000 moves from end to end"},
      {"touch down 1 2 --finger 10", "touch: finger must be a whole number from 0 to 9"},
      {"touch down 1 2 --finger 0.5", "touch: finger must be a whole number from 0 to 9"},
      {"touch tap 1 2", "touch: unknown word \"tap\"; usage: touch down|move|up|cancel X Y [--finger N]"},
      {"wait -0.1", "wait: seconds must not be negative"},
      {"wait 86401", "wait: seconds must not exceed 86400"},
      {"record-video a.webp --scale 1.5", "record-video: scale must not exceed 1"},
      {"describe-all a.json b.json",
       "describe-all: too many arguments; usage: describe-all [FILE.json] [--presentation]"},
  };
  for (auto& [line, text] : cases) {
    try {
      parseScriptLine(line);
      ADD_FAILURE() << line;
    } catch (const BadScriptLine& badLine) {
      EXPECT_STREQ(badLine.what(), text) << line;
    }
  }
}

}  // namespace
}  // namespace host
