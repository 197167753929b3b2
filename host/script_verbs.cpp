#include "host/script_verbs.h"

#include <fmt/format.h>

#include "host/describe.h"
#include "host/failure.h"
#include "host/machine_file.h"
#include "platform/activator/activator.h"
#include "platform/coregraphics/image_codec.h"
#include "platform/foundation/darwin_notification_center.h"
#include "platform/foundation/trace.h"
#include "platform/uikit/display.h"

namespace host {
namespace {

// Seconds. A request animates for a fraction of one; more than this is a fault.
constexpr CFTimeInterval longestSettling = 10;
constexpr CFTimeInterval longestDraining = 2;

}  // namespace

void ScriptVerbs::perform(const ScriptCommand& command) {
  std::visit([this](const auto& each) { run(each); }, command);
  time_.turn();
}

void ScriptVerbs::drain() {
  finger_.cancel();
  time_.advanceWhile([] { return true; }, longestDraining);
}

void ScriptVerbs::finishRecording() {
  if (time_.recording()) time_.stopRecording();
}

void ScriptVerbs::run(const LaunchCommand& command) {
  springBoard_.launch(command.bundle);
  settle();
}

void ScriptVerbs::run(const TerminateCommand& command) {
  springBoard_.terminate(command.bundle);
  settle();
}

void ScriptVerbs::run(const ButtonCommand& command) {
  switch (command.button) {
    case Button::Home:
      springBoard_.pressHome();
      break;
    case Button::Lock:
      springBoard_.pressLock();
      break;
  }
  settle();
}

void ScriptVerbs::run(const UnlockCommand&) {
  springBoard_.unlock();
  settle();
}

void ScriptVerbs::run(const TapCommand& command) { finger_.tap(command); }

void ScriptVerbs::run(const SwipeCommand& command) { finger_.swipe(command); }

void ScriptVerbs::run(const TouchCommand& command) { finger_.touch(command.action, command.point); }

void ScriptVerbs::run(const RotateCommand& command) { springBoard_.rotate(command.orientation); }

void ScriptVerbs::run(const KeyboardCommand& command) {
  if (command.show) {
    springBoard_.showKeyboard();
  } else {
    springBoard_.hideKeyboard();
  }
}

void ScriptVerbs::run(const ActivatorCommand& command) {
  LAActivator& activator = LAActivator::sharedInstance();
  auto event = std::make_shared<LAEvent>();
  std::string kind;
  switch (command.kind) {
    case ActivatorEventKind::Receive:
      kind = "receive";
      activator.sendEvent(*event);
      break;
    case ActivatorEventKind::Abort:
      kind = "abort";
      activator.sendAbort(*event);
      break;
    case ActivatorEventKind::Deactivate:
      kind = "deactivate";
      activator.sendDeactivateEvent(*event);
      break;
  }
  trace("activator-event", {{"kind", kind}, {"handled", event->handled()}});
}

void ScriptVerbs::run(const NotifyPostCommand& command) {
  CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(), command.name);
}

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
    print(jsonLine(description));
  }
}

void ScriptVerbs::run(const ListAppsCommand&) {
  for (const AppListing& app : springBoard_.applications()) {
    print(fmt::format("{} | {} | {}\n", app.bundle, app.name, app.running ? "running" : "not running"));
  }
}

void ScriptVerbs::settle() {
  time_.advanceWhile([this] { return springBoard_.busy(); }, longestSettling);
  if (springBoard_.busy()) throw Failure(fmt::format("still under way after {} s", longestSettling));
}

void ScriptVerbs::print(const std::string& text) {
  output_ << text << std::flush;
  if (!output_) throw Failure("standard output cannot be written");
}

}  // namespace host
