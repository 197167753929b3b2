#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <csignal>
#include <functional>

#include "platform/uikit/ui_color_archive.h"
#include "prefs/preference_files.h"
#include "prefs/settings.h"
#include "strips/card_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/shared_state.h"
#include "tests/support/temporary_root.h"
#include "tests/support/test_device.h"

namespace vistrel::test {
namespace {

TEST(Preferences, FirstStartWritesEveryKeyAtItsDefault) {
  TestDevice device;
  auto written = device.readPreferences();
  PropertyListDictionary expected = {
      {"swipeDirection", "Right"},
      {"animationStyle", "Push"},
      {"flatAnimationStyle", "Side"},
      {"upDownOpen", false},
      {"appNames", false},
      {"blur", false},
      {"dim", true},
      {"enabled", true},
      {"iconFade", false},
      {"nameFade", false},
      {"activatorOnly", false},
      {"lsEnabled", true},
      {"liquid", true},
      {"holdDownAction", true},
      {"favouritesEnabled", false},
      {"appNamePosition", "Bottom"},
      {"iconAnimation", "Grow"},
      {"nameAnimation", "Grow"},
      {"background", "Linen"},
      {"swipeActionEnabled", true},
      {"swipeUpAction", "Lock"},
      {"swipeDownAction", "Home"},
      {"visibleEdge", 15},
  };
  for (const auto& [key, value] : expected) {
    ASSERT_TRUE(written.contains(key)) << key;
    EXPECT_TRUE(written.at(key) == value) << key;
  }
  EXPECT_FLOAT_EQ(*written.at("iconSize").floatValue(), 0.7f);
  EXPECT_EQ(unarchiveColorWithData(*written.at("topColor").as<NSData>()), UIColor::grayColor());
  EXPECT_EQ(unarchiveColorWithData(*written.at("bottomColor").as<NSData>()), UIColor::darkGrayColor());
  EXPECT_EQ(written.size(), expected.size() + 3);
  EXPECT_EQ(settings.iconSize, 0.7f);
  EXPECT_EQ(settings.topColor, UIColor::grayColor());
}

TEST(Preferences, ASparseFileClearsWhatItsAbsenceClearsAndKeepsTheRest) {
  TestDevice device({.preferences = {{"swipeDirection", "Left"}}});
  EXPECT_EQ(settings.swipeDirection, "Left");
  EXPECT_FALSE(settings.nameFade || settings.activatorOnly || settings.lsEnabled ||
               settings.favouritesEnabled);
  EXPECT_EQ(settings.appNamePosition + settings.iconAnimation + settings.nameAnimation, "");
  EXPECT_TRUE(settings.enabled && settings.dim && settings.swipeActionEnabled);
  EXPECT_EQ(settings.visibleEdge, 15);
  EXPECT_EQ(settings.animationStyle, "Push");
}

TEST(Preferences, ValuesAreConvertedOrCountAsAbsent) {
  TestDevice device;
  device.changePreferences({{"iconSize", 0.5}, {"visibleEdge", 20.9}, {"dim", 0}, {"blur", 2}});
  EXPECT_EQ(settings.iconSize, 0.5f);
  EXPECT_EQ(settings.visibleEdge, 20);
  EXPECT_FALSE(settings.dim);
  EXPECT_TRUE(settings.blur);
  device.changePreferences({{"iconSize", 0}, {"visibleEdge", 0}, {"dim", "yes"}, {"swipeDirection", 3}});
  EXPECT_EQ(settings.iconSize, 0.5f) << "a stored zero is no size";
  EXPECT_EQ(settings.visibleEdge, 20);
  EXPECT_FALSE(settings.dim);
  EXPECT_EQ(settings.swipeDirection, "Right");
  for (double size : {1e7, -1e38, 1e300, std::nan("")}) device.changePreferences({{"iconSize", size}});
  EXPECT_EQ(settings.iconSize, 0.5f) << "nor is what no geometry can be made of";
  device.changePreferences({{"visibleEdge", 5e9},
                            {"iconSize", "0.9"},
                            {"topColor", NSData{1, 2, 3}},
                            {"bottomColor", archived(1, 0, 0)}});
  EXPECT_EQ(settings.visibleEdge, 20);
  EXPECT_EQ(settings.iconSize, 0.5f);
  EXPECT_EQ(settings.topColor, UIColor::grayColor());
  EXPECT_EQ(settings.bottomColor, UIColor::colorWithRed(1, 0, 0, 1));
}

TEST(Preferences, FavouritesCloseTheirGapsAndExcludedAppsLoseTheirPrefix) {
  TestDevice device(
      {.preferences = {{"fav2", "b"}, {"fav4", "d"}, {"fav5", 5}, {"favouritesEnabled", true}}});
  EXPECT_EQ(*favouriteApps, (NSStringArray{"b", "d"}));
  EXPECT_EQ(*switcherWindow->recentIDs(), (NSStringArray{"b", "d"}));
  auto apps = dataWithPropertyList(
      PropertyListDictionary{
          {"ALValue-a", true}, {"ALValue-ALValue-c", 1}, {"ALValue-b", false}, {"ALValue-d", "YES"}},
      PropertyListFormat::Binary);
  std::ofstream(device.pathOf(appsPath)).write(reinterpret_cast<const char*>(apps.data()), std::ssize(apps));
  device.postChange();
  EXPECT_EQ(disabledApps, (NSStringArray{"c", "a"}));
}

TEST(Preferences, AReloadMovesTheParkedWindow) {
  struct Case {
    PropertyListDictionary changes;
    float x;
  };
  TestDevice device;
  EXPECT_EQ(switcherWindow->frame(), CGRectMake(305, 0, 320, 480));
  for (const Case& c : {Case{{{"swipeDirection", "Left"}}, -305}, Case{{{"swipeDirection", "left"}}, -305},
                        Case{{{"swipeDirection", "Right"}, {"visibleEdge", 40}}, 280},
                        Case{{{"activatorOnly", true}}, 320}, Case{{{"swipeDirection", "Left"}}, -320}}) {
    device.changePreferences(c.changes);
    EXPECT_EQ(switcherWindow->frame(), CGRectMake(c.x, 0, 320, 480));
    EXPECT_EQ(iconStrip->frame(), CGRectMake(c.x, 210, 320, 60));
    EXPECT_EQ(switcherWindow->windowLevel(), 9000);
  }
}

TEST(Preferences, ADeletedFileIsWrittenAgainAndTheWindowStays) {
  TestDevice device({.preferences = {{"swipeDirection", "Left"}, {"fav1", "a"}}});
  device.deletePreferences();
  EXPECT_EQ(settings.swipeDirection, "Right");
  EXPECT_TRUE(settings.lsEnabled);
  EXPECT_TRUE(favouriteApps->empty());
  EXPECT_EQ(switcherWindow->frame().origin.x, -305) << "nothing moves until the next load or dismissal";
  EXPECT_TRUE(device.readPreferences().contains("swipeDirection"));
}

TEST(Preferences, AFileThatIsNoPropertyListCountsAsEmpty) {
  TestDevice device;
  std::ofstream(device.pathOf(preferencesPath)) << "<plist><dict><key>";
  device.postChange();
  EXPECT_FALSE(settings.lsEnabled);
  EXPECT_EQ(settings.iconAnimation, "");
  EXPECT_EQ(settings.swipeDirection, "Right");
}

using WritingPreferences = TemporaryRoot;

/// Writes the default preferences in a process of its own that stops at its `calls`th system call for `then`,
/// and ends there or, where `isToGoOn`, when it has written; true when it has fewer calls.
bool writeDefaultsUntil(
    int calls, bool isToGoOn = false, const std::function<void()>& then = [] {}) {
  const pid_t writer = fork();
  if (writer == 0) {
    ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    raise(SIGSTOP);
    writePreferencesFile(defaultPreferences());
    _exit(0);
  }
  int status = 0;
  waitpid(writer, &status, 0);
  for (; calls > 0 && WIFSTOPPED(status); --calls) {
    ptrace(PTRACE_SYSCALL, writer, nullptr, nullptr);
    waitpid(writer, &status, 0);
  }
  if (WIFEXITED(status)) return true;
  then();
  isToGoOn ? ptrace(PTRACE_DETACH, writer, nullptr, nullptr) : kill(writer, SIGKILL);
  waitpid(writer, &status, 0);
  return false;
}

TEST_F(WritingPreferences, KilledAtAnyMomentLeavesTheOldFileOrTheNewOneWhole) {
  constexpr const char* folder = "/var/mobile/Library/Preferences";
  const PropertyListDictionary old = {{"swipeDirection", "Left"}};
  bool wasOld = false, isOver = false;
  for (int calls = 1; !isOver; ++calls) {
    writePreferencesFile(old);  // Clears away what the last one has left, too.
    EXPECT_EQ(files().contentsOfDirectory(folder).size(), 1u) << calls;
    isOver = writeDefaultsUntil(calls);
    const auto found = readPreferencesFile();
    wasOld = wasOld || found == old;
    EXPECT_TRUE(found == old || found == defaultPreferences()) << calls;
  }
  EXPECT_TRUE(wasOld);
  EXPECT_EQ(readPreferencesFile(), defaultPreferences());
}

TEST_F(WritingPreferences, AnotherWriterAtAnyMomentTakesNothingAway) {
  bool isOver = false;
  for (int calls = 1; !isOver; ++calls) {
    writePreferencesFile({});
    isOver =
        writeDefaultsUntil(calls, true, [] { files().write(appsPath, {}, NSFileManager::Writing::Atomic); });
    EXPECT_TRUE(readPreferencesFile() == defaultPreferences()) << calls;
  }
}

}  // namespace
}  // namespace vistrel::test
