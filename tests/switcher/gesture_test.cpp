#include <gtest/gtest.h>

#include "platform/uikit/touch_dispatcher.h"
#include "platform/uikit/ui_device.h"
#include "platform/uikit/ui_keyboard.h"
#include "prefs/settings.h"
#include "strips/card_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/layout.h"
#include "switcher/shared_state.h"
#include "tests/support/test_device.h"

namespace vistrel::test {
namespace {

const PropertyListDictionary usual = {{"lsEnabled", true}, {"iconAnimation", "Grow"}};

TEST(EdgeGesture, OpensOncePulledFarEnoughFromTheEdge) {
  struct Case {
    const char* edge;
    bool alongToo;
    CGPoint from, to;
    bool opens, forPick;
  };
  const Case cases[] = {
      {"Right", false, {310, 240}, {293.5f, 240}, false, false},
      {"Right", false, {310, 240}, {293, 240}, true, false},
      {"Right", false, {310, 240}, {293, 253}, true, false},  // The leftward band reaches 13 down
      {"Right", false, {310, 240}, {293, 253.5f}, false, false},
      {"Right", false, {310, 240}, {293, 223}, true, false},  // and 17 up.
      {"Right", false, {310, 240}, {293, 222.5f}, false, false},
      {"Left", false, {5, 240}, {17.5f, 240}, false, false},
      {"Left", false, {5, 240}, {18, 240}, true, false},
      {"Left", false, {5, 240}, {18, 300}, true, false},      // Rightward has no band.
      {"Right", false, {306, 240}, {319, 240}, true, false},  // Either way counts, at either edge.
      {"Left", false, {5, 90}, {30, 90}, true, false},
      {"Left", false, {5, 90}, {30, 89}, false, false},
      {"Left", false, {5, 390}, {30, 390}, true, false},
      {"Left", false, {5, 390}, {30, 391}, false, false},
      {"Right", true, {310, 240}, {312, 253}, true, true},
      {"Right", true, {310, 240}, {312, 252.5f}, false, false},
      {"Right", true, {310, 240}, {310, 223}, true, true},
      {"Right", true, {310, 240}, {312.5f, 253}, false, false},
      {"Right", true, {310, 240}, {250, 253}, false, false},  // Sideways does not count once it went along.
      {"Right", false, {310, 240}, {310, 300}, false, false},
  };
  TestDevice device({.preferences = usual});
  for (const Case& c : cases) {
    device.changePreferences({{"swipeDirection", c.edge}, {"upDownOpen", c.alongToo}});
    device.down(c.from.x, c.from.y);
    device.move(c.to.x, c.to.y);
    EXPECT_EQ(switcherOpen, c.opens) << c.edge << ' ' << c.to.x << ' ' << c.to.y;
    EXPECT_EQ(iconPickMode, c.forPick) << c.edge << ' ' << c.to.x << ' ' << c.to.y;
    if (c.opens) {
      EXPECT_EQ(iconStrip->frame().origin.y, c.to.y + 5 - 30);
      switcherWindow->hide();
      device.pump(0.4);
    }
    device.up();
  }
}

TEST(EdgeGesture, IsDeafUnderAKeyboard) {
  TestDevice device({.preferences = usual});
  device.launch(testBundles[0]);
  device.springBoard().showKeyboard();
  const float typing = UIPeripheralHost::sharedInstance().automaticKeyboard()->targetWindow()->windowLevel();
  device.down(310, 200);
  EXPECT_EQ(switcherWindow->windowLevel(), typing);
  device.drag(100, 200);
  device.up();
  EXPECT_FALSE(switcherOpen);
  device.springBoard().hideKeyboard();
  device.swipeIn(200, 100);
  EXPECT_TRUE(switcherOpen);
}

struct PeekCase {
  PropertyListDictionary style;
  float y;
  float top, bottom;  // Where the upper and lower bands lie; they rest at -40 (0) and 245+40.
  float shown;        // Alpha of the home screen's bands.
};

TEST(Peek, FollowsTheFingerBeyondItsBand) {
  const PropertyListDictionary flat = {{"animationStyle", "Flat"}};
  const PeekCase cases[] = {
      {{}, 141, -40, 285, 0},
      {{}, 140, 140 - 245 + 60, 285, 1},
      {{}, 60, 60 - 245 + 60, 285, 1},
      {{}, 339, -40, 285, 0},
      {{}, 340, -40, 278, 1},
      {{{"swipeUpAction", "None"}}, 100, -40, 285, 1},
      {{{"swipeDownAction", "None"}}, 400, -40, 285, 1},
      {{{"swipeActionEnabled", false}}, 400, -40, 285, 0},
      {flat, 100, 100 - 205 + 60, 285, 1},
  };
  TestDevice device({.preferences = usual});
  device.launch(testBundles[0]);
  for (const PeekCase& c : cases) {
    PropertyListDictionary style = {{"animationStyle", "Push"},
                                    {"swipeUpAction", "Lock"},
                                    {"swipeDownAction", "Home"},
                                    {"swipeActionEnabled", true}};
    for (const auto& [key, value] : c.style) style.insert_or_assign(key, value);
    device.changePreferences(style);
    device.swipeIn(240, 160);
    const CGFloat resting = switcherWindow->topBand()->frame().origin.y;
    device.move(160, c.y);
    EXPECT_EQ(switcherWindow->topBand()->frame().origin.y, resting) << "no peek while the bands still open";
    device.pump(0.4);
    device.move(160, c.y);
    EXPECT_EQ(switcherWindow->topBand()->frame().origin.y, c.top) << c.y;
    EXPECT_EQ(switcherWindow->bottomBand()->frame().origin.y, c.bottom) << c.y;
    if (settings.swipeActionEnabled) {
      EXPECT_EQ(switcherWindow->homeScreenTop()->alpha(), c.shown) << c.y;
    }
    device.move(160, 240);
    device.pump(0.3);
    EXPECT_EQ(switcherWindow->topBand()->frame().origin.y, resting);
    EXPECT_EQ(switcherWindow->bottomBand()->frame().origin.y, 285);
    switcherWindow->hide();
    device.pump(0.4);
    device.up();
  }
}

TEST(Release, PicksSwipesOrCloses) {
  // Five applications, slots of 64: centres at 30, 94, 158, 222, 286.
  struct Case {
    PropertyListDictionary changes;
    CGPoint end;
    bool pickMode;
    const char* front;  // "" is the home screen.
    bool locked, open, leavesHome;
  };
  const char* was = "com.example.five";
  const Case cases[] = {
      {{}, {61, 240}, false, "com.example.one", false, false, false},
      {{}, {62, 240}, false, "com.example.two", false, false, false},
      {{}, {0, 240}, false, "com.example.one", false, false, false},
      {{}, {319, 240}, false, was, false, false, false},
      {{}, {158, 279}, false, "com.example.three", false, false, false},
      {{}, {158, 201}, false, "com.example.three", false, false, false},
      {{}, {158, 280}, false, was, false, false, false},
      {{}, {158, 200}, false, was, false, false, false},
      {{}, {158, 439}, false, was, false, false, false},
      {{}, {158, 440}, false, "", false, false, true},
      {{}, {158, 41}, false, was, false, false, false},
      {{}, {158, 40}, false, was, true, false, false},
      {{{"swipeDownAction", "None"}}, {158, 440}, false, was, false, false, false},
      {{{"swipeActionEnabled", false}}, {158, 440}, false, was, false, false, false},
      {{}, {158, 240}, true, was, false, false, false},
      {{}, {319, 240}, true, was, false, true, false},
      {{}, {158, 300}, true, was, false, true, false},
      {{}, {158, 40}, true, was, true, true, false},
      {{}, {158, 440}, true, "", false, false, true},
  };
  TestDevice device({.preferences = usual});
  for (const Case& c : cases) {
    device.springBoard().unlock();
    device.settle();
    device.changePreferences({{"swipeDownAction", "Home"}, {"swipeActionEnabled", true}});
    device.changePreferences(c.changes);
    for (auto bundle : {"com.example.four", "com.example.three", "com.example.two", "com.example.one"})
      device.launch(bundle);
    device.launch(was);
    device.home();
    device.launch(was);
    switcherWindow->setRecentIDs(std::make_shared<const NSStringArray>(testBundles));
    device.swipeIn(240, 160);
    device.pump(0.4);
    iconPickMode = c.pickMode;
    device.move(c.end.x, c.end.y);
    device.up();
    EXPECT_EQ(device.springBoard().frontmost().value_or(""), c.front)
        << c.end.x << ' ' << c.end.y << c.pickMode;
    EXPECT_EQ(device.springBoard().locked(), c.locked) << c.end.x << ' ' << c.end.y << c.pickMode;
    device.pump(0.31);
    EXPECT_EQ(switcherOpen, c.open || c.leavesHome) << c.end.x << ' ' << c.end.y << c.pickMode;
    switcherWindow->hide();
    device.pump(0.4);
  }
}

TEST(Release, AFingerThatIsTakenAwayPicksNothingAndLeavesTheSwitcherClosed) {
  TestDevice device({.recents = testBundles});
  device.swipeIn(240, 150);
  device.pump(1);
  ASSERT_TRUE(switcherOpen);
  TouchDispatcher::shared().cancel(0, RunLoop::main().now());
  device.pump(1);
  EXPECT_FALSE(switcherOpen);
  EXPECT_EQ(switcherWindow->frame(), restingWindowFrame());
  EXPECT_EQ(device.springBoard().frontmost(), std::nullopt);
}

TEST(Release, HomeOnALockedDeviceOnlyCloses) {
  TestDevice device({.preferences = usual, .locked = true});
  device.swipeIn(240, 160);
  device.pump(0.4);
  device.move(160, 470);
  device.up();
  EXPECT_TRUE(device.springBoard().locked());
  device.pump(0.31);
  EXPECT_FALSE(switcherOpen);
}

TEST(Visibility, HidesForExcludedAppsAndForLandscape) {
  TestDevice device({.preferences = usual, .disabledApps = {testBundles[1]}});
  auto visible = [] { return switcherWindow->alpha() == 1 && switcherWindow->userInteractionEnabled(); };
  device.launch(testBundles[0]);
  EXPECT_TRUE(visible());
  device.launch(testBundles[1]);
  EXPECT_TRUE(hiddenForApp);
  EXPECT_FALSE(visible());
  device.springBoard().rotate(UIDeviceOrientation::LandscapeLeft);
  device.springBoard().rotate(UIDeviceOrientation::Portrait);
  EXPECT_FALSE(visible()) << "a rotation never brings it back";
  device.home();
  EXPECT_TRUE(visible());
  device.springBoard().rotate(UIDeviceOrientation::LandscapeRight);
  EXPECT_FALSE(visible());
  device.springBoard().rotate(UIDeviceOrientation::FaceUp);
  EXPECT_FALSE(visible()) << "lying flat changes nothing";
  device.springBoard().rotate(UIDeviceOrientation::Portrait);
  EXPECT_TRUE(visible());
  switcherWindow->showForAppClose();
  EXPECT_TRUE(visible());
}

TEST(Rotation, TurnsWindowAndStripsWithTheFrontAppAndBack) {
  TestDevice device({.preferences = usual});
  const CGRect parked = switcherWindow->frame();
  device.launch(testBundles[0]);
  device.springBoard().rotate(UIDeviceOrientation::LandscapeLeft);
  device.settle();
  for (UIView* view : {static_cast<UIView*>(switcherWindow), static_cast<UIView*>(iconStrip)}) {
    EXPECT_EQ(view->bounds(), CGRectMake(0, 0, 480, 320));
    EXPECT_NEAR(view->transform().b, -1, 1e-6);
  }
  EXPECT_EQ(screenWidth, 480);
  device.springBoard().rotate(UIDeviceOrientation::LandscapeRight);
  device.settle();
  EXPECT_EQ(screenWidth, 320) << "between two landscapes only the size is set, to the portrait one";
  EXPECT_EQ(switcherWindow->bounds(), CGRectMake(0, 0, 480, 320));
  device.springBoard().rotate(UIDeviceOrientation::Portrait);
  device.settle();
  EXPECT_EQ(switcherWindow->transform(), CGAffineTransformIdentity);
  EXPECT_EQ(switcherWindow->frame(), parked);
  device.springBoard().rotate(UIDeviceOrientation::LandscapeLeft);
  device.receive();
  device.pump(0.4);
  device.abort();
  device.pump(0.4);
  device.springBoard().rotate(UIDeviceOrientation::Portrait);
  EXPECT_EQ(switcherWindow->frame(), parked) << "closed on its side, the window still comes back to the edge";
  device.swipeIn(200, 100);
  EXPECT_TRUE(switcherOpen);
  EXPECT_EQ(iconStrip->frame().size, CGSizeMake(320, 60)) << "the next show lays the strip out";
}

}  // namespace
}  // namespace vistrel::test
