#include <gtest/gtest.h>

#include <cmath>

#include "platform/runtime/message.h"
#include "prefs/settings.h"
#include "strips/card_dragger.h"
#include "strips/name_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/shared_state.h"
#include "tests/support/test_device.h"

namespace vistrel::test {
namespace {

DeviceSetup deviceWith(std::size_t apps, const PropertyListDictionary& changes = {}) {
  DeviceSetup setup{.preferences = {{"lsEnabled", true},
                                    {"appNames", true},
                                    {"appNamePosition", "Bottom"},
                                    {"iconAnimation", "Grow"},
                                    {"nameAnimation", "Grow"}}};
  for (const auto& [key, value] : changes) setup.preferences.insert_or_assign(key, value);
  setup.recents.assign(testBundles.begin(), testBundles.begin() + static_cast<std::ptrdiff_t>(apps));
  return setup;
}

/// A touch made up at a place of the icon strip.
UITouchSet touchAt(CGPoint inStrip) {
  return {std::make_shared<UITouch>(iconStrip->convertPointToScreen(inStrip), 0, nullptr)};
}

float scaleOf(UIView& view) { return view.layer().transform().m11; }

TEST(IconStrip, SpreadsOneIconAnApplicationOverEqualSlots) {
  TestDevice device(deviceWith(5));
  for (std::size_t count : {5, 4, 1, 0}) {
    switcherWindow->setRecentIDs(std::make_shared<const NSStringArray>(
        testBundles.begin(), testBundles.begin() + std::ptrdiff_t(count)));
    iconStrip->shuffleIcons();
    iconStrip->shuffleIcons();
    ASSERT_EQ(iconStrip->subviews().size(), count);
    ASSERT_EQ(nameStrip->names().size(), count);
    for (std::size_t i = 0; i < count; ++i) {
      const float center = 320.0f / float(count) * float(i) + 30;
      EXPECT_EQ(iconStrip->icons()[i]->center(), CGPointMake(center, 30));
      EXPECT_EQ(nameStrip->names()[i]->center(), CGPointMake(center, 10));
      EXPECT_EQ(scaleOf(*iconStrip->icons()[i]), 0) << "growing icons are not seen before the show";
      EXPECT_EQ(nameStrip->names()[i]->text(), testBundles[i].substr(12));
    }
  }
  switcherWindow->setRecentIDs(
      std::make_shared<const NSStringArray>(NSStringArray{"com.gone", testBundles[0], "com.gone"}));
  device.changePreferences({{"iconAnimation", "Roll"}});
  EXPECT_EQ(iconStrip->icons()[2]->center().x, 30) << "a repeated application lies on its first mention";
  EXPECT_EQ(scaleOf(*iconStrip->icons()[0]), 1);
}

TEST(IconStrip, SinglesOutTheIconUnderTheFinger) {
  struct Case {
    const char* animation;
    float size, resting, selected, selectedY;
  };
  const Case cases[] = {
      {"Grow", 0.5f, 0.7f, 1.0f, 30},       {"Roll", 0.6f, 0.6f, -0.6f, 30},
      {"Shrink", 0.7f, 0.7f, 0.5f, 30},     {"BounceUp", 0.7f, 0.7f, 0.7f, 20},
      {"BounceDown", 0.7f, 0.7f, 0.7f, 40}, {"None", 0.8f, 0.8f, 0.8f, 30},
  };
  TestDevice device(deviceWith(5));
  for (bool fade : {false, true}) {
    for (const Case& c : cases) {
      device.changePreferences({{"iconAnimation", c.animation}, {"iconSize", c.size}, {"iconFade", fade}});
      switcherWindow->showAtPoint(240);
      device.pump(0.4);
      for (int chosen : {2, 1}) {
        iconStrip->touchesMoved(touchAt({64.0f * float(chosen) + 30, 30}), nullptr);
        for (int i = 0; i < 5; ++i) {
          auto& icon = *iconStrip->icons()[std::size_t(i)];
          EXPECT_EQ(scaleOf(icon), i == chosen ? c.selected : c.resting) << c.animation << i;
          EXPECT_EQ(icon.center().y, i == chosen ? c.selectedY : 30) << c.animation << i;
          EXPECT_EQ(icon.alpha(), i == chosen || !fade ? 1.0f : 0.7f) << c.animation << i;
        }
      }
      device.pump(0.05);
      EXPECT_TRUE(iconStrip->icons()[1]->layer().isAnimating());
      device.pump(0.06);
      EXPECT_FALSE(iconStrip->icons()[1]->layer().isAnimating());
      iconStrip->touchesMoved(touchAt({95, 30}), nullptr);
      EXPECT_FALSE(iconStrip->icons()[1]->layer().isAnimating()) << "the selection has not changed";
      iconStrip->touchesMoved(touchAt({95, 90}), nullptr);
      for (const auto& icon : iconStrip->icons())
        EXPECT_EQ(scaleOf(*icon), c.resting) << "outside the strip all rest";
      switcherWindow->hide();
      device.pump(0.4);
    }
  }
}

TEST(IconStrip, APickOpensTheNearestAppOrNothingAndAlwaysCloses) {
  struct Case {
    CGPoint down, up;  // In the strip.
    int opens;         // -1: nothing
  };
  const Case cases[] = {
      {{69, 30}, {69, 30}, 0},  {{70, 30}, {70, 30}, 1},       {{300, 30}, {300, 30}, 3},
      {{5, 30}, {0, 30}, 0},    {{300, 30}, {319.9f, 30}, -1}, {{30, 10}, {30, 49}, 0},
      {{30, 10}, {30, 50}, -1}, {{30, 50}, {30, 10}, -1},
  };
  TestDevice device(deviceWith(4));
  for (const Case& c : cases) {
    device.home();
    switcherWindow->setRecentIDs(
        std::make_shared<const NSStringArray>(testBundles.begin(), testBundles.begin() + 4));
    iconStrip->shuffleIcons();
    ASSERT_TRUE(device.receive());
    device.pump(0.4);
    const CGPoint from = iconStrip->convertPointToScreen(c.down), to = iconStrip->convertPointToScreen(c.up);
    device.down(from.x, from.y);
    device.move(to.x, to.y);
    device.up();
    EXPECT_EQ(device.springBoard().frontmost().value_or(""),
              c.opens < 0 ? "" : testBundles[std::size_t(c.opens)])
        << c.up.x << ' ' << c.up.y;
    device.pump(0.4);
    EXPECT_FALSE(switcherOpen);
  }
}

TEST(IconStrip, AReleaseOutsidePickModeIsTheWindowsBusiness) {
  TestDevice device(deviceWith(4));
  switcherWindow->showAtPoint(240);
  device.pump(0.4);
  device.tap(30, 240);
  EXPECT_TRUE(switcherOpen);
  EXPECT_FALSE(device.springBoard().frontmost());
}

TEST(IconStrip, PulsesAndOpensByNumber) {
  TestDevice device(deviceWith(3));
  performAction(*iconStrip, "enlargeIconAtIndex:", NSNumber::numberWithInt(3));
  performAction(*iconStrip, "enlargeIconAtIndex:", NSNumber::numberWithInt(-1));
  for (const auto& icon : iconStrip->icons()) EXPECT_TRUE(icon->subviews().empty());
  performAction(*iconStrip, "enlargeIconAtIndex:", NSNumber::numberWithInt(1));
  ASSERT_EQ(iconStrip->icons()[1]->subviews().size(), 1u);
  device.pump(0.49);
  EXPECT_EQ(iconStrip->icons()[1]->subviews().size(), 1u);
  device.pump(0.02);
  EXPECT_TRUE(iconStrip->icons()[1]->subviews().empty());
  auto sender = std::make_shared<UIView>();
  sender->setTag(2);
  switcherWindow->showAtPoint(240);
  performAction(*iconStrip, "openApp:", sender);
  EXPECT_EQ(device.springBoard().frontmost(), testBundles[2]);
  device.pump(0.4);
  EXPECT_FALSE(switcherOpen);
}

TEST(NameStrip, SelectsTheNameAtOrRightOfTheFinger) {
  struct Case {
    std::size_t names;
    float x;
    int selected;
  };
  const Case cases[] = {{4, 31, 1},  {4, 30, 0}, {4, 110, 1}, {4, 111, 2}, {4, 0, 0}, {4, 191, 3},
                        {4, 300, 2}, {2, 31, 1}, {2, 200, 0}, {1, 200, 0}, {1, 10, 0}};
  TestDevice device(deviceWith(4));
  for (const Case& c : cases) {
    switcherWindow->setRecentIDs(std::make_shared<const NSStringArray>(
        testBundles.begin(), testBundles.begin() + std::ptrdiff_t(c.names)));
    iconStrip->shuffleIcons();
    // From another selection, so that the move is a change; a single name has no other.
    if (c.names > 1) nameStrip->touchesMoved(touchAt({c.selected == 0 ? 31.0f : 0.0f, 30}), nullptr);
    nameStrip->touchesMoved(touchAt({c.x, 30}), nullptr);
    for (int i = 0; i < int(c.names); ++i) {
      const float expected = c.names == 1 ? 1.0f : i == c.selected ? 1.0f : 0.7f;
      EXPECT_EQ(scaleOf(*nameStrip->names()[std::size_t(i)]), expected) << c.names << ' ' << c.x << ' ' << i;
    }
  }
  switcherWindow->setRecentIDs(std::make_shared<const NSStringArray>());
  iconStrip->shuffleIcons();
  nameStrip->touchesMoved(touchAt({200, 30}), nullptr);
  EXPECT_TRUE(nameStrip->names().empty()) << "no name, no selection";
}

TEST(NameStrip, SinglesOutItsSelection) {
  struct Case {
    const char* animation;
    float selected, y;
  };
  TestDevice device(deviceWith(3, {{"nameFade", true}}));
  EXPECT_FALSE(nameStrip->userInteractionEnabled());
  for (const Case& c : {Case{"Grow", 1, 10},
                        {"Roll", -0.7f, 10},
                        {"Shrink", 0.5f, 10},
                        {"BounceUp", 0.7f, 5},
                        {"BounceDown", 0.7f, 15},
                        {"None", 0.7f, 10}}) {
    device.changePreferences({{"nameAnimation", c.animation}, {"nameFade", true}});
    iconStrip->prepForActivatorActivation();
    EXPECT_EQ(scaleOf(*nameStrip->names()[0]), 0.7f);
    nameStrip->touchesMoved(touchAt({0, 30}), nullptr);
    nameStrip->touchesMoved(touchAt({31, 30}), nullptr);
    for (std::size_t i = 0; i < 3; ++i) {
      auto& name = *nameStrip->names()[i];
      EXPECT_EQ(scaleOf(name), i == 1 ? c.selected : 0.7f) << c.animation;
      EXPECT_EQ(name.center().y, i == 1 ? c.y : 10) << c.animation;
      EXPECT_EQ(name.alpha(), i == 1 ? 1.0f : 0.7f) << c.animation;
    }
  }
}

}  // namespace
}  // namespace vistrel::test
