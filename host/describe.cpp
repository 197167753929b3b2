#include "host/describe.h"

#include "host/orientation_names.h"
#include "platform/uikit/ui_alert_view.h"
#include "platform/uikit/ui_application.h"
#include "platform/uikit/ui_device.h"
#include "platform/uikit/ui_keyboard.h"
#include "platform/uikit/ui_screen.h"
#include "platform/uikit/ui_window.h"

namespace host {

Json describeDevice(const SpringBoard& springBoard) {
  const UIScreen& screen = UIScreen::mainScreen();
  const auto frontmost = springBoard.frontmost();
  return {{"model", springBoard.model().name},
          {"screen", jsonRect(screen.bounds())},
          {"scale", jsonNumber(screen.scale())},
          {"orientation", nameOf(UIDevice::currentDevice().orientation())},
          {"statusBarOrientation", int(UIApplication::sharedApplication().statusBarOrientation())},
          {"locked", springBoard.locked()},
          {"frontmost", frontmost ? Json(*frontmost) : Json(nullptr)},
          {"recents", springBoard.recents()},
          {"keyboard", UIKeyboard::isOnScreen()}};
}

Json describeAlerts() {
  Json alerts = Json::array();
  for (auto& alert : UIAlertView::visibleAlerts()) {
    alerts.push_back(
        {{"title", alert->title()}, {"message", alert->message()}, {"buttons", alert->buttonTitles()}});
  }
  return alerts;
}

Json describeWindows(Values values) {
  Json windows = Json::array();
  for (const UIWindow* window : UIWindow::allWindows()) windows.push_back(describeView(*window, values));
  return windows;
}

Json describe(const SpringBoard& springBoard, Values values) {
  return {{"time", jsonTime(RunLoop::main().now())},
          {"device", describeDevice(springBoard)},
          {"alerts", describeAlerts()},
          {"windows", describeWindows(values)}};
}

}  // namespace host
