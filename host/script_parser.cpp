#include "host/script_parser.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "host/orientation_names.h"
#include "host/script_arguments.h"
#include "host/script_words.h"

namespace host {
namespace {

using Arguments = ScriptArguments;

// A swipe with more moves than this is a slip of the pen, not a gesture.
constexpr CGFloat mostSwipeMoves = 100000;

ScriptCommand parseButton(const Arguments& arguments) {
  static constexpr std::pair<std::string_view, Button> buttons[] = {{"HOME", Button::Home},
                                                                    {"LOCK", Button::Lock}};
  return ButtonCommand{arguments.choice(0, buttons)};
}

ScriptCommand parseSwipe(const Arguments& arguments) {
  SwipeCommand swipe{.from = arguments.point(0, "X1", "Y1"), .to = arguments.point(2, "X2", "Y2")};
  swipe.duration = arguments.durationOr(swipe.duration);
  swipe.delta = arguments.positiveOr("--delta", "delta", swipe.delta);
  const CGFloat length = std::hypot(swipe.to.x - swipe.from.x, swipe.to.y - swipe.from.y);
  if (!(length / swipe.delta <= mostSwipeMoves)) {
    arguments.fail(fmt::format("more than {} moves from end to end", mostSwipeMoves));
  }
  return swipe;
}

ScriptCommand parseTouch(const Arguments& arguments) {
  static constexpr std::pair<std::string_view, TouchAction> actions[] = {{"down", TouchAction::Down},
                                                                         {"move", TouchAction::Move},
                                                                         {"up", TouchAction::Up},
                                                                         {"cancel", TouchAction::Cancel}};
  return TouchCommand{arguments.choice(0, actions), arguments.point(1, "X", "Y"),
                      arguments.wholeOr("--finger", "finger", 0, mostFingers - 1)};
}

ScriptCommand parseRotate(const Arguments& arguments) {
  const std::string& word = arguments.text(0, "orientation");
  auto orientation = orientationNamed(word);
  if (!orientation) arguments.failUnknownWord(word);
  return RotateCommand{*orientation};
}

ScriptCommand parseKeyboard(const Arguments& arguments) {
  static constexpr std::pair<std::string_view, bool> states[] = {{"show", true}, {"hide", false}};
  return KeyboardCommand{arguments.choice(0, states)};
}

ScriptCommand parseActivator(const Arguments& arguments) {
  static constexpr std::pair<std::string_view, ActivatorEventKind> kinds[] = {
      {"receive", ActivatorEventKind::Receive},
      {"abort", ActivatorEventKind::Abort},
      {"deactivate", ActivatorEventKind::Deactivate}};
  return ActivatorCommand{arguments.choice(0, kinds)};
}

ScriptCommand parseRecordVideo(const Arguments& arguments) {
  RecordVideoCommand record{.file = arguments.text(0, "FILE")};
  record.scale = arguments.positiveOr("--scale", "scale", record.scale);
  if (record.scale > 1) arguments.fail("scale must not exceed 1");
  return record;
}

ScriptCommand parseDescribeAll(const Arguments& arguments) {
  DescribeAllCommand describe{.presentation = arguments.hasOption("--presentation")};
  if (arguments.has(0)) describe.file = arguments.text(0, "FILE");
  return describe;
}

struct Verb {
  ScriptSyntax syntax;
  ScriptCommand (*parse)(const Arguments&);
};

const std::vector<Verb>& verbs() {
  static const std::vector<Verb> table = {
      {{"launch", "launch BUNDLE", 1, 1},
       [](const Arguments& arguments) -> ScriptCommand {
         return LaunchCommand{arguments.text(0, "BUNDLE")};
       }},
      {{"terminate", "terminate BUNDLE", 1, 1},
       [](const Arguments& arguments) -> ScriptCommand {
         return TerminateCommand{arguments.text(0, "BUNDLE")};
       }},
      {{"button", "button HOME|LOCK", 1, 1}, parseButton},
      {{"unlock", "unlock", 0, 0}, [](const Arguments&) -> ScriptCommand { return UnlockCommand{}; }},
      {{"tap", "tap X Y [--duration S]", 2, 2, {{"--duration", true}}},
       [](const Arguments& arguments) -> ScriptCommand {
         return TapCommand{arguments.point(0, "X", "Y"), arguments.durationOr(0)};
       }},
      {{"swipe",
        "swipe X1 Y1 X2 Y2 [--duration S] [--delta POINTS]",
        4,
        4,
        {{"--duration", true}, {"--delta", true}}},
       parseSwipe},
      {{"touch", "touch down|move|up|cancel X Y [--finger N]", 3, 3, {{"--finger", true}}}, parseTouch},
      {{"rotate", "rotate PORTRAIT|PORTRAIT_UPSIDE_DOWN|LANDSCAPE_LEFT|LANDSCAPE_RIGHT|FACE_UP|FACE_DOWN", 1,
        1},
       parseRotate},
      {{"keyboard", "keyboard show|hide", 1, 1}, parseKeyboard},
      {{"activator", "activator receive|abort|deactivate", 1, 1}, parseActivator},
      {{"notify-post", "notify-post NAME", 1, 1},
       [](const Arguments& arguments) -> ScriptCommand {
         return NotifyPostCommand{arguments.text(0, "NAME")};
       }},
      {{"wait", "wait S", 1, 1},
       [](const Arguments& arguments) -> ScriptCommand { return WaitCommand{arguments.seconds(0)}; }},
      {{"screenshot", "screenshot FILE.png", 1, 1},
       [](const Arguments& arguments) -> ScriptCommand {
         return ScreenshotCommand{arguments.text(0, "FILE")};
       }},
      {{"record-video", "record-video FILE.webp [--scale F]", 1, 1, {{"--scale", true}}}, parseRecordVideo},
      {{"record-stop", "record-stop", 0, 0},
       [](const Arguments&) -> ScriptCommand { return RecordStopCommand{}; }},
      {{"describe-all", "describe-all [FILE.json] [--presentation]", 0, 1, {{"--presentation", false}}},
       parseDescribeAll},
      {{"list-apps", "list-apps", 0, 0}, [](const Arguments&) -> ScriptCommand { return ListAppsCommand{}; }},
  };
  return table;
}

}  // namespace

std::optional<ScriptCommand> parseScriptLine(std::string_view line) {
  const std::vector<ScriptWord> words = splitScriptLine(line);
  if (words.empty()) return std::nullopt;
  return parseScriptVerb(words.front().text, std::span(words).subspan(1));
}

ScriptCommand parseScriptVerb(std::string_view verb, std::span<const ScriptWord> arguments) {
  auto known = std::ranges::find(verbs(), verb, [](const Verb& each) { return each.syntax.verb; });
  if (known == verbs().end()) throw BadScriptLine(fmt::format("unknown verb \"{}\"", verb));
  return known->parse(ScriptArguments(known->syntax, arguments));
}

std::vector<std::string_view> scriptVerbUsages() {
  std::vector<std::string_view> usages;
  for (const Verb& verb : verbs()) usages.push_back(verb.syntax.usage);
  return usages;
}

}  // namespace host
