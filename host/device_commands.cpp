#include "host/device_commands.h"

#include "platform/activator/activator.h"
#include "platform/foundation/darwin_notification_center.h"
#include "platform/foundation/trace.h"

namespace host {

void perform(SpringBoard& springBoard, const LaunchCommand& command) { springBoard.launch(command.bundle); }

void perform(SpringBoard& springBoard, const TerminateCommand& command) {
  springBoard.terminate(command.bundle);
}

void perform(SpringBoard& springBoard, const ButtonCommand& command) {
  switch (command.button) {
    case Button::Home:
      return springBoard.pressHome();
    case Button::Lock:
      return springBoard.pressLock();
  }
}

void perform(SpringBoard& springBoard, const UnlockCommand&) { springBoard.unlock(); }

void perform(SpringBoard& springBoard, const RotateCommand& command) {
  springBoard.rotate(command.orientation);
}

void perform(SpringBoard& springBoard, const KeyboardCommand& command) {
  if (command.show) {
    springBoard.showKeyboard();
  } else {
    springBoard.hideKeyboard();
  }
}

void perform(SpringBoard&, const ActivatorCommand& command) {
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

void perform(SpringBoard&, const NotifyPostCommand& command) {
  CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(), command.name);
}

}  // namespace host
