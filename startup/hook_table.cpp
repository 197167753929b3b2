#include "startup/hook_table.h"

#include <algorithm>
#include <string>

#include "platform/springboard/sb_app_switcher_model.h"
#include "platform/springboard/sb_application.h"
#include "platform/springboard/sb_application_icon.h"
#include "platform/springboard/sb_away_controller.h"
#include "platform/springboard/sb_away_view.h"
#include "platform/springboard/sb_ui_animation_controller.h"
#include "platform/springboard/sb_ui_controller.h"
#include "platform/uikit/ui_application.h"
#include "platform/uikit/ui_status_bar.h"
#include "prefs/settings.h"
#include "startup/home_screen_capture.h"
#include "startup/hook.h"
#include "startup/setup.h"
#include "strips/card_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/shared_state.h"
#include "switcher/window_level.h"

namespace vistrel {
namespace {

bool isDisabled(SBApplication& application) {
  return std::ranges::find(disabledApps, application.displayIdentifier()) != disabledApps.end();
}

void hideForDisabledApp(SBApplication* application) {
  if (switcherWindow && application && isDisabled(*application)) switcherWindow->hideForApp();
}

// Most rows only put the window back on top, before or after what SpringBoard does. `row` keeps the rows
// apart whose methods are of one type.

template <int row, class Self, class... Args>
void reassertAfter(Self& self, Args... args) {
  previous<&reassertAfter<row, Self, Args...>>(self, args...);
  reassertWindowLevel();
}

template <int row, class Result, class Self, class... Args>
Result reassertFirst(Self& self, Args... args) {
  reassertWindowLevel();
  return previous<&reassertFirst<row, Result, Self, Args...>>(self, args...);
}

// The life of applications.

void modelRemove(SBAppSwitcherModel& self, std::string identifier) {
  if (switcherWindow) switcherWindow->removeCardWithBundleID(identifier);
  previous<modelRemove>(self, identifier);
}

void removeAppFromSwitchAppList(SBUIController& self, SBApplication* application) {
  if (iconStrip) iconStrip->shuffleIcons();
  previous<removeAppFromSwitchAppList>(self, application);
}

void activateApplicationFromSwitcher(SBUIController& self, SBApplication* application) {
  previous<activateApplicationFromSwitcher>(self, application);
  hideForDisabledApp(application);
}

SBUIAnimationController* initWithActivatingApp(SBUIAnimationController& self, SBApplication* activatingApp,
                                               SBApplication* deactivatingApp) {
  if (switcherWindow) {
    reassertWindowLevel();
    hideForDisabledApp(activatingApp);
    if (deactivatingApp) {
      switcherWindow->showForAppClose();
      switcherWindow->setImagesForBundle(deactivatingApp->displayIdentifier());
    }
  }
  return previous<initWithActivatingApp>(self, activatingApp, deactivatingApp);
}

void didActivate(SBApplication& self) {
  previous<didActivate>(self);
  hideForDisabledApp(&self);
  reassertWindowLevel();
}

// The lock screen's view, and icons.

SBAwayView* initAwayViewWithFrame(SBAwayView& self, CGRect frame) {
  SBAwayView* view = previous<initAwayViewWithFrame>(self, frame);
  if (view) setUpSwitcher(*view);
  return view;
}

void launchIcon(SBApplicationIcon& self) {
  HomeScreenCapture capture;
  previous<launchIcon>(self);
  capture.save();
}

constexpr Hook hookTable[] = {
    hook<modelRemove>("SBAppSwitcherModel", "remove:"),
    hook<removeAppFromSwitchAppList>("SBUIController", "removeAppFromSwitchAppList:"),
    hook<reassertAfter<3, SBUIController>>("SBUIController", "finishLaunching"),
    hook<activateApplicationFromSwitcher>("SBUIController", "activateApplicationFromSwitcher:"),
    hook<initWithActivatingApp>("SBUIAnimationController", "initWithActivatingApp:deactivatingApp:"),
    hook<didActivate>("SBApplication", "didActivate"),
    hook<reassertAfter<7, SBApplication>>("SBApplication", "activate"),
    hook<reassertFirst<8, std::string, SBApplication>>("SBApplication", "_activationStateToString"),
    hook<reassertAfter<9, SBApplication>>("SBApplication", "_setHasBeenLaunched"),
    hook<reassertAfter<10, SBApplication>>("SBApplication", "didAnimateActivation"),
    hook<reassertAfter<11, SBApplication, NSObject*>>("SBApplication", "didLaunch:"),
    hook<reassertAfter<12, SBAwayController>>("SBAwayController", "undimScreen"),
    hook<reassertAfter<13, UIApplication>>("UIApplication", "_reportAppLaunchFinished"),
    hook<reassertFirst<14, UIWindow*, UIStatusBar>>("UIStatusBar", "statusBarWindow"),
    hook<reassertFirst<15, UIStatusBar*, UIStatusBar, CGRect>>("UIStatusBar", "initWithFrame:"),
    hook<reassertFirst<16, void, SBAwayView>>("SBAwayView", "handleMenuButtonTap"),
    hook<reassertAfter<17, SBAwayView>>("SBAwayView", "didMoveToWindow"),
    hook<initAwayViewWithFrame>("SBAwayView", "initWithFrame:"),
    hook<launchIcon>("SBApplicationIcon", "launch"),
};

}  // namespace

void installHooks() {
  for (const Hook& row : hookTable) row.install(row);
}

}  // namespace vistrel
