#include "platform/uikit/ui_kit.h"

#include "platform/uikit/ui_alert_view.h"
#include "platform/uikit/ui_application.h"
#include "platform/uikit/ui_keyboard.h"
#include "platform/uikit/ui_screen.h"
#include "platform/uikit/ui_status_bar.h"

namespace {

UIStatusBar* initStatusBarWithFrame(UIStatusBar& self, CGRect frame) {
  self.setFrame(frame);
  return &self;
}

UIWindow* windowOfStatusBars(UIStatusBar&) { return &UIStatusBar::sharedStatusBarWindow(); }

CGFloat scaleOfScreen(UIScreen& self) { return self.scale(); }

// Leaving and finishing are the host's business; without one nothing happens.
void quitTopApplication(UIApplication&, NSObject*) {}
void reportAppLaunchFinished(UIApplication&) {}

UIPeripheralHost* sharedPeripheralHost() { return &UIPeripheralHost::sharedInstance(); }

void dismissAlert(NSObject& self) { static_cast<UIAlertView&>(self).dismiss(); }

}  // namespace

void registerUIKitClasses() {
  static bool registered = false;
  if (registered) return;
  registered = true;

  UIStatusBar::objcClass().addMethod("initWithFrame:", initStatusBarWithFrame);
  UIStatusBar::objcClass().addMethod("statusBarWindow", windowOfStatusBars);
  UIApplication::objcClass().addMethod("quitTopApplication:", quitTopApplication);
  UIApplication::objcClass().addMethod("_reportAppLaunchFinished", reportAppLaunchFinished);
  UIScreen::objcClass().addMethod("scale", scaleOfScreen);
  UIKeyboard::objcClass().addClassMethod("isOnScreen", UIKeyboard::isOnScreen);
  UIPeripheralHost::objcClass().addClassMethod("sharedInstance", sharedPeripheralHost);
  UIAlertView::objcClass().addMethod("dismiss", dismissAlert);
}
