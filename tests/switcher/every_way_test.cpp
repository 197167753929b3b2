#include <gtest/gtest.h>

#include <malloc.h>

#include <ostream>

#include "platform/uikit/display.h"
#include "prefs/settings.h"
#include "strips/card_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/shared_state.h"
#include "tests/support/test_device.h"

namespace vistrel::test {
namespace {

/// How the device looks and what the window carries while the switcher is closed.
struct Rest {
  std::vector<std::uint8_t> screen;
  CGRect window;
  std::size_t subviews, sublayers;
  bool operator==(const Rest&) const = default;
};

Rest lookAt() {
  return {CGDataProviderCopyData(UIGetScreenImage()), switcherWindow->frame(),
          switcherWindow->subviews().size(), switcherWindow->layer().sublayers().size()};
}

struct Way {
  const char* device;
  bool locked;
  bool everyStyle = false;  ///< On one device; the others differ in their screens alone, and are slower.
};

std::ostream& operator<<(std::ostream& out, const Way& way) {
  return out << way.device << (way.locked ? " locked" : "");
}

class EveryWay : public testing::TestWithParam<Way> {
 protected:
  PropertyListDictionary preferences_ = {
      {"lsEnabled", true},       {"appNames", true}, {"appNamePosition", "Top"},
      {"iconAnimation", "Roll"}, {"blur", true},     {"nameAnimation", "BounceUp"},
      {"nameFade", true},        {"iconFade", true}};
};

/// Opens, looks at a frame in the middle, closes; nothing of it may remain.
void openAndClose(TestDevice& device, bool byActivator, float height, const Rest& before) {
  if (byActivator) {
    ASSERT_TRUE(device.receive());
  } else {
    device.swipeIn(height, screenWidth / 2);
  }
  ASSERT_TRUE(switcherOpen);
  EXPECT_EQ(switcherWindow->frame(), screenBounds);
  device.pump(0.35);
  EXPECT_NE(CGDataProviderCopyData(UIGetScreenImage()), before.screen);
  if (byActivator) {
    EXPECT_TRUE(device.deactivate());
  } else {
    device.move(screenWidth - 1, height);  // Beyond the last icon: a release that opens nothing.
    device.up();
  }
  device.pump(0.35);
  ASSERT_FALSE(switcherOpen);
  EXPECT_TRUE(lookAt() == before);
}

TEST_P(EveryWay, OpensAndClosesWithoutATrace) {
  TestDevice device({.model = GetParam().device, .preferences = preferences_, .locked = GetParam().locked});
  if (!GetParam().locked) {
    for (const std::string& bundle : testBundles) device.launch(bundle);
  }
  std::vector<std::pair<const char*, const char*>> styles = {{"Push", "Side"}, {"Flat", "Split"}};
  if (GetParam().everyStyle)
    styles.insert(styles.end(),
                  {{"Flat", "Side"}, {"Flat", "Up"}, {"Flat", "Down"}, {"Flat", "?"}, {"?", "?"}});
  for (const char* edge : {"Right", "Left"}) {
    for (const auto& [style, flatStyle] : styles) {
      for (const char* background : {"Linen", "Color"}) {
        device.changePreferences({{"swipeDirection", edge},
                                  {"animationStyle", style},
                                  {"flatAnimationStyle", flatStyle},
                                  {"background", background}});
        const Rest before = lookAt();
        SCOPED_TRACE(std::string(edge) + ' ' + style + ' ' + flatStyle + ' ' + background);
        openAndClose(device, true, 0, before);
        for (float height : {90.0f, 123.4f, screenHeight - 90}) openAndClose(device, false, height, before);
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Devices, EveryWay,
                         testing::Values(Way{"iphone-3gs", false, true}, Way{"iphone-4", false},
                                         Way{"iphone-5", true}, Way{"ipad", false}, Way{"iphone-4", true}));

TEST(Endurance, AThousandOpeningsLeaveMemoryWhereItBegan) {
  TestDevice device({.model = "iphone-3gs", .preferences = {{"lsEnabled", true}, {"iconAnimation", "Grow"}}});
  device.launch(testBundles[0]);
  device.home();
  auto openAndClose = [&](int times) {
    for (int i = 0; i < times; ++i) {
      device.receive();
      device.pump(0.31);
      device.abort();
      device.pump(0.31);
    }
  };
  openAndClose(100);
  const Rest before = lookAt();
  const auto allocated = mallinfo2().uordblks;
  openAndClose(1000);
  EXPECT_TRUE(lookAt() == before);
  EXPECT_TRUE(RunLoop::main().idle());
  constexpr std::size_t slack = 64 << 10;
  EXPECT_LT(mallinfo2().uordblks, allocated + slack)
      << "counts nothing under an address sanitizer, which has its own heap";
}

}  // namespace
}  // namespace vistrel::test
