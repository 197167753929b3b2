#include <gtest/gtest.h>

#include <fstream>

#include "platform/foundation/trace.h"
#include "platform/springboard/sb_app_switcher_model.h"
#include "platform/springboard/sb_away_controller.h"
#include "platform/springboard/sb_away_view.h"
#include "platform/springboard/sb_ui_animation_controller.h"
#include "platform/springboard/sb_ui_controller.h"
#include "platform/uikit/ui_alert_view.h"
#include "platform/uikit/ui_application.h"
#include "platform/uikit/ui_status_bar.h"
#include "prefs/settings.h"
#include "strips/card_dragger.h"
#include "strips/name_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/device_paths.h"
#include "switcher/shared_state.h"
#include "switcher/spring_board.h"
#include "tests/support/test_device.h"

namespace vistrel::test {
namespace {

const PropertyListDictionary usual = {{"lsEnabled", true}, {"iconAnimation", "Grow"}};

TEST(HookTable, InstallsNineteenInOrder) {
  std::vector<std::string> installed;
  setTraceSink([&](std::string_view event, const TraceFields& fields) {
    if (event != "hook") return;
    installed.push_back(std::get<std::string>(fields[0].second) + ' ' +
                        std::get<std::string>(fields[1].second));
  });
  TestDevice device;
  EXPECT_EQ(installed,
            (std::vector<std::string>{
                "SBAppSwitcherModel remove:", "SBUIController removeAppFromSwitchAppList:",
                "SBUIController finishLaunching", "SBUIController activateApplicationFromSwitcher:",
                "SBUIAnimationController initWithActivatingApp:deactivatingApp:", "SBApplication didActivate",
                "SBApplication activate", "SBApplication _activationStateToString",
                "SBApplication _setHasBeenLaunched", "SBApplication didAnimateActivation",
                "SBApplication didLaunch:", "SBAwayController undimScreen",
                "UIApplication _reportAppLaunchFinished", "UIStatusBar statusBarWindow",
                "UIStatusBar initWithFrame:", "SBAwayView handleMenuButtonTap", "SBAwayView didMoveToWindow",
                "SBAwayView initWithFrame:", "SBApplicationIcon launch"}));
  setTraceSink({});
}

TEST(HookTable, SpringBoardsEventsPutTheWindowBackOnTop) {
  TestDevice device({.preferences = usual});
  SBApplication& app = *applicationWithIdentifier(testBundles[0]);
  auto* uiController = sendToClass<SBUIController*>(objc_getClass("SBUIController"), "sharedInstance");
  auto* away = sendToClass<SBAwayController*>(objc_getClass("SBAwayController"), "sharedAwayController");
  auto bar = std::make_shared<UIStatusBar>();
  auto awayView = std::make_shared<SBAwayView>();
  const std::pair<const char*, std::function<void()>> calls[] = {
      {"finishLaunching", [&] { uiController->finishLaunching(); }},
      {"initWithActivatingApp",
       [] { std::make_shared<SBUIAnimationController>()->initWithActivatingApp(nullptr, nullptr); }},
      {"didActivate", [&] { app.didActivate(); }},
      {"activate", [&] { app.activate(); }},
      {"_activationStateToString", [&] { app.activationStateToString(); }},
      {"_setHasBeenLaunched", [&] { app.setHasBeenLaunched(); }},
      {"didAnimateActivation", [&] { app.didAnimateActivation(); }},
      {"didLaunch:", [&] { app.didLaunch(nullptr); }},
      {"undimScreen", [&] { away->undimScreen(); }},
      {"_reportAppLaunchFinished", [] { UIApplication::sharedApplication().reportAppLaunchFinished(); }},
      {"statusBarWindow", [&] { bar->statusBarWindow(); }},
      {"UIStatusBar initWithFrame:", [&] { bar->initWithFrame(CGRectMake(0, 0, 320, 20)); }},
      {"handleMenuButtonTap", [&] { awayView->handleMenuButtonTap(); }},
      {"didMoveToWindow", [&] { awayView->didMoveToWindow(); }},
      {"SBAwayView initWithFrame:", [&] { awayView->initWithFrame(CGRectMake(0, 0, 320, 480)); }},
  };
  for (const auto& [name, call] : calls) {
    switcherWindow->setWindowLevel(9000);
    call();
    EXPECT_EQ(switcherWindow->windowLevel(), 9001) << name;
  }
}

TEST(Setup, BuildsTheSwitcherOnce) {
  TestDevice device(
      {.preferences = {{"lsEnabled", true}, {"appNames", true}, {"appNamePosition", "Bottom"}}});
  EXPECT_EQ(switcherWindow->frame(), CGRectMake(305, 0, 320, 480));
  EXPECT_EQ(iconStrip->frame(), CGRectMake(305, 210, 320, 60));
  EXPECT_EQ(nameStrip->frame(), CGRectMake(305, 270, 320, 30));
  EXPECT_EQ(nameStrip->alpha(), 0);
  EXPECT_EQ(switcherWindow->windowLevel(), 9001);
  CardScroller* before = switcherWindow;
  device.springBoard().pressLock();  // Builds a lock screen afresh.
  device.settle();
  EXPECT_EQ(switcherWindow, before);
  int reached = 0;
  setTraceSink([&](std::string_view event, const TraceFields& fields) {
    if (event == "notification") reached += static_cast<int>(std::get<std::int64_t>(fields[1].second));
  });
  device.postChange();
  EXPECT_EQ(reached, 1) << "registered at every lock screen, reached once";
  setTraceSink({});
}

TEST(Setup, DoesNothingWhenNotEnabled) {
  TestDevice device({.preferences = {{"enabled", false}, {"appNames", true}}});
  EXPECT_EQ(switcherWindow, nullptr);
  EXPECT_EQ(iconStrip, nullptr);
  EXPECT_EQ(nameStrip, nullptr);
  EXPECT_FALSE(device.receive());
  device.changePreferences({{"swipeDirection", "Left"}});
  EXPECT_EQ(settings.swipeDirection, "Right") << "nobody listens for changes";
  device.launch(testBundles[0]);
  EXPECT_EQ(device.springBoard().frontmost(), testBundles[0]) << "every hook passes through";
}

TEST(Setup, WarnsOnceWhereActivatorIsAskedForAndMissing) {
  TestDevice device({.preferences = {{"activatorOnly", true}}, .activator = false});
  ASSERT_EQ(UIAlertView::visibleAlerts().size(), 1u);
  const UIAlertView& alert = *UIAlertView::visibleAlerts()[0];
  EXPECT_EQ(alert.title(), "Vistrel Warning");
  EXPECT_EQ(alert.message(),
            "You have set Vistrel to only be activated via Activator, but you seem not to have Activator "
            "installed.");
  EXPECT_EQ(alert.buttonTitles(), std::vector<std::string>{"OK"});
  EXPECT_EQ(switcherWindow->frame().origin.x, 320);
  EXPECT_FALSE(device.receive());
}

TEST(Activator, OpensAndClosesButNeverToggles) {
  TestDevice device({.preferences = usual});
  EXPECT_FALSE(device.abort());
  EXPECT_FALSE(device.deactivate());
  EXPECT_TRUE(device.receive());
  EXPECT_TRUE(switcherOpen && iconPickMode);
  EXPECT_EQ(switcherWindow->startPoint(), CGPointMake(0, 240));
  EXPECT_EQ(iconStrip->frame().origin.y, 210);
  device.pump(0.4);
  EXPECT_FALSE(device.receive());
  EXPECT_TRUE(device.abort());
  EXPECT_TRUE(device.deactivate()) << "still open while it closes";
  device.pump(0.4);
  EXPECT_FALSE(switcherOpen);
  EXPECT_FALSE(device.deactivate());
}

TEST(AppList, FollowsSpringBoardsModelAtDeactivationAndRemoval) {
  TestDevice device({.preferences = usual, .recents = {testBundles[2], testBundles[3]}});
  EXPECT_EQ(*switcherWindow->recentIDs(), (NSStringArray{testBundles[2], testBundles[3]}));
  device.launch(testBundles[0]);
  EXPECT_EQ(switcherWindow->appCount(), 2u) << "an app that is only launched is not offered yet";
  device.home();
  EXPECT_EQ(*switcherWindow->recentIDs(), (NSStringArray{testBundles[0], testBundles[2], testBundles[3]}));
  EXPECT_EQ(iconStrip->icons().size(), 3u);
  device.springBoard().terminate(testBundles[0]);
  EXPECT_EQ(switcherWindow->appCount(), 3u) << "the list is taken before SpringBoard's own removal";
  device.launch(testBundles[1]);
  device.home();
  EXPECT_EQ(*switcherWindow->recentIDs(), (NSStringArray{testBundles[1], testBundles[2], testBundles[3]}));
}

TEST(AppList, LeavesOutSystemPartsAndKeepsFive) {
  TestDevice device({.preferences = usual});
  auto* model = sendToClass<SBAppSwitcherModel*>(objc_getClass("SBAppSwitcherModel"), "sharedInstance");
  auto* identifiers = object_getInstanceVariable<NSStringArray>(
      model, class_getInstanceVariable(&model->isa(), "_recentDisplayIdentifiers"));
  ASSERT_NE(identifiers, nullptr);
  struct Case {
    NSStringArray model, offered;
  };
  const Case cases[] = {
      {{"a", "b", "com.apple.nike", "c", "d", "e", "f"}, {"a", "b", "c", "d", "e"}},
      {{"com.apple.AdSheet", "com.apple.webapp", "com.apple.fieldtest", "com.apple.FieldTest"}, {}},
      {{"com.apple.NEWSSTAND", "com.apple.NewsStand", "com.apple.newsstand", "a", "a"},
       {"com.apple.NEWSSTAND", "a", "a"}},
      {{}, {}},
  };
  for (const Case& c : cases) {
    *identifiers = c.model;
    switcherWindow->setImagesForBundle("any");
    EXPECT_EQ(*switcherWindow->recentIDs(), c.offered);
  }
  device.changePreferences({{"favouritesEnabled", true}, {"fav1", "com.apple.nike"}});
  *identifiers = {"a"};
  switcherWindow->removeCardWithBundleID("a");
  EXPECT_EQ(*switcherWindow->recentIDs(), NSStringArray{"com.apple.nike"})
      << "favourites are neither merged nor filtered";
  device.changePreferences({{"favouritesEnabled", false}});
  EXPECT_EQ(switcherWindow->appCount(), 1u) << "favourites stay until the next rebuild";
}

TEST(HomeScreenCapture, IsTakenAtEveryIconLaunchWhereThereArePeeks) {
  TestDevice device({.preferences = {{"swipeActionEnabled", false}}});
  const auto cache = device.root() / "var/mobile/Library/Caches/VitsrelSB.png";
  device.launch(testBundles[0]);
  EXPECT_FALSE(std::filesystem::exists(cache));
  device.changePreferences({{"swipeActionEnabled", true}});
  springBoardImage = std::make_shared<UIImage>(nullptr, 1.0f, UIImageOrientation::Up);
  device.launch(testBundles[1]);
  EXPECT_EQ(springBoardImage, nullptr);
  std::ifstream file(cache, std::ios::binary);
  EXPECT_EQ(file.get(), 0xff) << "JPEG, whatever its name says";
  EXPECT_EQ(file.get(), 0xd8);
  auto picture = UIImage::imageWithContentsOfFile(homeScreenPicturePath);
  EXPECT_EQ(picture->size(), CGSizeMake(640, 960));
}

}  // namespace
}  // namespace vistrel::test
