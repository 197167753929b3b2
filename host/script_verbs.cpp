#include "host/script_verbs.h"

#include <fmt/format.h>

#include "host/describe.h"
#include "host/device_commands.h"
#include "host/failure.h"
#include "host/machine_file.h"
#include "host/standard_streams.h"
#include "platform/coregraphics/image_codec.h"
#include "platform/uikit/display.h"

namespace host {
namespace {

// Seconds. A request animates for a fraction of one; more than this is a fault.
constexpr CFTimeInterval longestSettling = 10;
constexpr CFTimeInterval longestDraining = 2;

/// The commands of the device that last until what they began has come to an end.
template <class Command>
constexpr bool lastsUntilMet =
    std::is_same_v<Command, LaunchCommand> || std::is_same_v<Command, TerminateCommand> ||
    std::is_same_v<Command, ButtonCommand> || std::is_same_v<Command, UnlockCommand>;

}  // namespace

void ScriptVerbs::perform(const ScriptCommand& command) {
  std::visit([this](const auto& each) { run(each); }, command);
  time_.turn();
}

void ScriptVerbs::drain() {
  fingers_.cancelAll();
  time_.advanceWhile([] { return true; }, longestDraining);
}

void ScriptVerbs::finishRecording() {
  if (time_.recording()) time_.stopRecording();
}

void ScriptVerbs::run(const TapCommand& command) { fingers_.tap(command); }
void ScriptVerbs::run(const SwipeCommand& command) { fingers_.swipe(command); }
void ScriptVerbs::run(const TouchCommand& command) { fingers_.touch(command); }

void ScriptVerbs::run(const WaitCommand& command) { time_.advanceBy(command.seconds); }

void ScriptVerbs::run(const ScreenshotCommand& command) {
  MachineFile(command.file).write(encodePng(UIGetScreenImage()));
}

void ScriptVerbs::run(const RecordVideoCommand& command) {
  time_.startRecording(command.file, command.scale);
}

void ScriptVerbs::run(const RecordStopCommand&) { time_.stopRecording(); }

void ScriptVerbs::run(const DescribeAllCommand& command) {
  const Json description =
      describe(springBoard_, command.presentation ? Values::Presentation : Values::Model);
  if (command.file) {
    MachineFile(*command.file).write(jsonPage(description));
  } else {
    print(output_, jsonLine(description));
  }
}

void ScriptVerbs::run(const ListAppsCommand&) {
  for (const AppListing& app : springBoard_.applications()) {
    print(output_,
          fmt::format("{} | {} | {}\n", app.bundle, app.name, app.running ? "running" : "not running"));
  }
}

template <class Command>
void ScriptVerbs::run(const Command& command) {
  host::perform(springBoard_, command);
  if constexpr (lastsUntilMet<Command>) settle();
}

void ScriptVerbs::settle() {
  time_.advanceWhile([this] { return springBoard_.busy(); }, longestSettling);
  if (springBoard_.busy()) throw Failure(fmt::format("still under way after {} s", longestSettling));
}

}  // namespace host
