#include "host/spring_board.h"

#include "host/device_clock.h"
#include "host/failure.h"
#include "platform/springboard/sb_application_icon.h"
#include "platform/uikit/ui_application.h"
#include "platform/uikit/ui_device.h"
#include "platform/uikit/ui_image_view.h"
#include "platform/uikit/ui_keyboard.h"
#include "platform/uikit/ui_label.h"
#include "tests/host/boot_fixture.h"

namespace host::test {
namespace {

constexpr const char* settingsFile = "/var/mobile/Library/Preferences/com.apple.springboard.plist";

using SpringBoardTest = BootTest;

std::string causeOf(const std::function<void()>& request) {
  try {
    request();
  } catch (const Failure& failure) {
    return failure.what();
  }
  return "";
}

TEST_F(SpringBoardTest, RefusesAFolderThatIsNoDeviceRoot) {
  std::filesystem::remove(root() / "Applications");
  EXPECT_THROW(boot(), Failure);
  std::filesystem::remove(root());
  EXPECT_THROW(boot(), Failure);
}

TEST_F(SpringBoardTest, LeavesOutBundlesThatAreNotUsableAndSaysWhy) {
  install({"one"});
  install({"sub/two"});  // Not directly in the folder: no bundle of its own.
  write("/Applications/broken.app/Info.plist", bytes("no"));
  std::filesystem::create_directory(root() / "Applications/empty.app");
  writeDictionaryToFile({{"CFBundleIdentifier", 7}}, "/Applications/nameless.app/Info.plist");
  writeDictionaryToFile({{"CFBundleIdentifier", "com.example.one"}}, "/Applications/two.app/Info.plist");
  writeDictionaryToFile({{"CFBundleIdentifier", "com.example.plain"}}, "/Applications/plain.app/Info.plist");
  const std::string tooLong(256, 'x');
  writeDictionaryToFile({{"CFBundleIdentifier", tooLong}}, "/Applications/long.app/Info.plist");
  writeDictionaryToFile({{"CFBundleIdentifier", "l"}, {"CFBundleName", tooLong}},
                        "/Applications/longer.app/Info.plist");
  const SpringBoard& board = boot();
  EXPECT_EQ(board.warnings(),
            (std::vector<std::string>{
                "/Applications/broken.app/Info.plist: not a readable property list",
                "/Applications/empty.app/Info.plist: not a readable property list",
                "/Applications/long.app/Info.plist: CFBundleIdentifier is longer than 255 bytes",
                "/Applications/longer.app/Info.plist: the name is longer than 255 bytes",
                "/Applications/nameless.app/Info.plist: no CFBundleIdentifier",
                "/Applications/two.app/Info.plist: another application is called com.example.one"}));
  ASSERT_EQ(board.applications().size(), 2u);
  EXPECT_EQ(board.applications()[0].name, "one");
  EXPECT_EQ(board.applications()[1].name, "plain");
}

TEST_F(SpringBoardTest, RefusesWhatCannotBeDone) {
  install({"one", "two"});
  SpringBoard& board = boot();
  EXPECT_NE(causeOf([&] { board.launch("com.example.none"); }), "");
  EXPECT_NE(causeOf([&] { board.terminate("com.example.none"); }), "");
  EXPECT_EQ(causeOf([&] { board.terminate("com.example.one"); }), "com.example.one: not running");
  EXPECT_NE(causeOf([&] { board.showKeyboard(); }), "") << "on the home screen";
  launch("one");
  board.showKeyboard();
  EXPECT_TRUE(UIKeyboard::isOnScreen());
  board.pressLock();
  EXPECT_FALSE(UIKeyboard::isOnScreen());
  EXPECT_NE(causeOf([&] { board.showKeyboard(); }), "") << "when locked";
  EXPECT_EQ(causeOf([&] { board.launch("com.example.two"); }), "com.example.two: the device is locked");
  EXPECT_EQ(board.frontmost(), "com.example.one");
  board.unlock();
  board.showKeyboard();
  launch("two");
  EXPECT_FALSE(UIKeyboard::isOnScreen());
  board.terminate("com.example.two");
  EXPECT_EQ(board.frontmost(), std::nullopt);
  EXPECT_EQ(board.recents(), NSStringArray{"com.example.one"});
  EXPECT_TRUE(board.applications()[0].running);
  EXPECT_FALSE(board.applications()[1].running);
  EXPECT_NE(causeOf([&] { board.terminate("com.example.two"); }), "");
}

TEST_F(SpringBoardTest, KeepsRecentsAcrossRunsBesideOtherSettings) {
  install({"one", "two", "three"});
  writeDictionaryToFile({{"SBRecentDisplays", PropertyListArray{"com.example.two", 5, "com.example.gone",
                                                                "com.example.two", "com.example.three"}},
                         {"SBOther", "stays"}},
                        settingsFile);
  EXPECT_EQ(boot().recents(), (NSStringArray{"com.example.two", "com.example.three"}));
  launch("three");
  launch("one");
  springBoard->terminate("com.example.three");
  const NSStringArray left{"com.example.one", "com.example.two"};
  EXPECT_EQ(boot().recents(), left);
  EXPECT_EQ(dictionaryWithContentsOfFile(settingsFile),
            (PropertyListDictionary{{"SBRecentDisplays", PropertyListArray(left.begin(), left.end())},
                                    {"SBOther", "stays"}}));

  for (const PropertyListDictionary& odd : {PropertyListDictionary{{"SBRecentDisplays", "text"}}, {}}) {
    writeDictionaryToFile(odd, settingsFile);
    EXPECT_TRUE(boot().recents().empty());
  }
  write(settingsFile, bytes("x"));
  boot();
  launch("one");
  EXPECT_EQ(boot().recents(), NSStringArray{"com.example.one"});
}

TEST_F(SpringBoardTest, TurnsTheFrontApplicationWhereItsBundleAllows) {
  install({"fixed"});
  install({"free"},
          {{"UISupportedInterfaceOrientations",
            PropertyListArray{"UIInterfaceOrientationPortrait", "UIInterfaceOrientationLandscapeLeft",
                              "UIInterfaceOrientationLandscapeRight"}}});
  paint("/Applications/free.app/Default@2x.png", {640, 960});
  paint("/Applications/free.app/Default-Landscape@2x.png", {960, 640});
  SpringBoard& board = boot();
  const auto shown = [] { return UIApplication::sharedApplication().statusBarOrientation(); };
  const auto barFrame = [] {
    for (UIWindow* candidate : UIWindow::allWindows())
      if (const auto bars = views(*candidate, "UIStatusBar"); !bars.empty()) return bars[0]->frame();
    return CGRectZero;
  };
  using Device = UIDeviceOrientation;
  using Interface = UIInterfaceOrientation;

  board.rotate(Device::LandscapeLeft);
  EXPECT_EQ(shown(), Interface::Portrait) << "at home";
  launch("fixed");
  EXPECT_EQ(shown(), Interface::Portrait) << "not listed";
  launch("free");
  EXPECT_EQ(shown(), Interface::LandscapeRight) << "launched on its side";

  struct Turn {
    Device device;
    Interface interface;
    CGPoint topLeft;  // Where the interface's upper left corner is on the screen.
    CGRect bar;
  };
  const Turn turns[] = {
      {Device::LandscapeLeft, Interface::LandscapeRight, {320, 0}, CGRectMake(300, 0, 20, 480)},
      {Device::FaceUp, Interface::LandscapeRight, {320, 0}, CGRectMake(300, 0, 20, 480)},
      {Device::LandscapeRight, Interface::LandscapeLeft, {0, 480}, CGRectMake(0, 0, 20, 480)},
      {Device::PortraitUpsideDown, Interface::LandscapeLeft, {0, 480}, CGRectMake(0, 0, 20, 480)},
      {Device::Portrait, Interface::Portrait, {0, 0}, CGRectMake(0, 0, 320, 20)},
      {Device::LandscapeRight, Interface::LandscapeLeft, {0, 480}, CGRectMake(0, 0, 20, 480)},
  };
  for (const Turn& turn : turns) {
    board.rotate(turn.device);
    EXPECT_EQ(shown(), turn.interface) << int(turn.device);
    const auto& screen =
        static_cast<const UIImageView&>(*views(*window("SBAppWindow"), "SBAppScreenView").at(0));
    EXPECT_EQ(screen.convertPointToScreen({0, 0}), turn.topLeft) << int(turn.device);
    EXPECT_EQ(screen.image()->size(), screen.bounds().size) << int(turn.device);
    EXPECT_EQ(barFrame(), turn.bar) << int(turn.device);
  }
  board.pressLock();
  EXPECT_EQ(shown(), Interface::Portrait) << "locked";
  board.rotate(Device::LandscapeLeft);
  EXPECT_EQ(shown(), Interface::Portrait) << "turned while locked";
  board.unlock();
  EXPECT_EQ(shown(), Interface::LandscapeRight) << "unlocked";
  board.pressHome();
  EXPECT_EQ(shown(), Interface::Portrait) << "home again";
}

TEST_F(SpringBoardTest, AnimatesAndIsBusyMeanwhile) {
  install({"one"});
  SpringBoard& board = boot();
  board.launch("com.example.one");
  EXPECT_EQ(board.frontmost(), "com.example.one");
  pump(0.1);
  EXPECT_TRUE(board.busy());
  const CALayer& layer = views(*window("SBAppWindow"), "SBAppScreenView").at(0)->layer();
  const CGRect midway = CALayer::frameOf(layer.presentationAt(RunLoop::main().now()));
  EXPECT_GT(midway.size.width, 57);
  EXPECT_LT(midway.size.width, 320);
  pump(0.3);
  EXPECT_FALSE(board.busy());
  board.pressHome();
  EXPECT_EQ(board.frontmost(), std::nullopt);
  EXPECT_FALSE(window("SBAppWindow")->hidden());
  tap({46, 60});
  EXPECT_EQ(board.frontmost(), "com.example.one") << "icons can be touched while the screen is leaving";
  board.pressHome();
  rest();
  EXPECT_TRUE(window("SBAppWindow")->hidden());
  EXPECT_TRUE(window("SBAppWindow")->subviews().empty());
}

TEST_F(SpringBoardTest, LaysOutTheHomeScreenOfEachDevice) {
  NSStringArray names{"phone", "mail", "music"};  // No messages: the dock closes up.
  for (int i = 0; i < 21; ++i) names.push_back("app" + std::to_string(10 + i));
  install(names);
  paint("/Applications/app10.app/Icon.png", {57, 57});
  paint("/Applications/app10.app/Icon@2x.png", {114, 114});
  paint("/Applications/app10.app/Other-72.png", {72, 72});
  writeDictionaryToFile({{"CFBundleIdentifier", "com.example.app10"},
                         {"CFBundleIconFiles", PropertyListArray{"Icon", "Other-72.png"}}},
                        "/Applications/app10.app/Info.plist");
  struct Case {
    const char* model;
    std::size_t onFirstPage;
    int iconPixels;
    CGPoint last;  // Of the icons of the first page: the middle of its picture.
  };
  const Case cases[] = {{"iphone-3gs", 16, 57, {273.5f, 324.5f}},
                        {"iphone-4", 16, 114, {273.5f, 324.5f}},
                        {"iphone-5", 20, 114, {273.5f, 412.5f}},
                        {"ipad", 20, 72, {642, 774}}};
  for (const Case& device : cases) {
    boot(device.model);
    const auto strip = views(*window("SBHomeWindow"), "SBIconScrollView").at(0)->subviews().at(0);
    ASSERT_EQ(strip->subviews().size(), 2u) << device.model;
    const auto firstPage = views(*strip->subviews()[0], "SBIconView");
    ASSERT_EQ(firstPage.size(), device.onFirstPage) << device.model;
    const auto& picture = static_cast<UIImageView&>(*firstPage[0]->subviews().at(0));
    EXPECT_EQ(picture.image()->cgImage()->width(), device.iconPixels) << device.model;
    EXPECT_EQ(picture.image()->size(), picture.bounds().size) << device.model;
    EXPECT_EQ(firstPage.back()->convertPointToScreen(firstPage.back()->subviews().at(0)->center()),
              device.last);
    NSStringArray docked;
    for (UIView* icon : views(*views(*window("SBHomeWindow"), "SBDockView").at(0), "SBIconView"))
      docked.push_back(static_cast<UILabel&>(*icon->subviews().at(1)).text());
    EXPECT_EQ(docked, (NSStringArray{"phone", "mail", "music"})) << device.model;
  }
}

TEST_F(SpringBoardTest, TurnsPagesByFingerAndForALaunch) {
  NSStringArray names;
  for (int i = 0; i < 20; ++i) names.push_back("app" + std::to_string(10 + i));
  install(names);
  SpringBoard& board = boot();
  const auto strip = views(*window("SBHomeWindow"), "SBIconScrollView").at(0)->subviews().at(0);
  const auto page = [&] { return -strip->frame().origin.x / 320; };

  struct Case {
    const char* what;
    CGPoint from, to;
    CGFloat page;
  };
  const Case cases[] = {{"short of a page", {200, 200}, {140, 200}, 0},
                        {"beyond the first page", {100, 200}, {300, 200}, 0},
                        {"from an icon to the next page", {290, 60}, {46, 70}, 1},
                        {"beyond the last page", {290, 60}, {46, 70}, 1},
                        {"along the dock", {46, 430}, {290, 430}, 1},
                        {"back", {46, 60}, {200, 70}, 0}};
  for (const Case& swipe : cases) {
    drag(swipe.from, swipe.to);
    rest();
    EXPECT_EQ(page(), swipe.page) << swipe.what;
    EXPECT_EQ(board.frontmost(), std::nullopt) << swipe.what;
  }
  launch("app29");
  EXPECT_EQ(page(), 1);
  board.pressHome();
  rest();
  EXPECT_EQ(page(), 1) << "home leads back to the page of the launch";
  tap({46, 60});
  EXPECT_EQ(board.frontmost(), "com.example.app26");
  board.pressHome();
  board.pressHome();
  rest();
  EXPECT_EQ(page(), 0);
  drag({46, 60}, {46, 300});
  EXPECT_EQ(board.frontmost(), std::nullopt) << "lifted off the icon";
}

TEST_F(SpringBoardTest, UnlocksAtTheEndOfTheSlider) {
  SpringBoard& board = boot("iphone-4", true);
  EXPECT_TRUE(board.locked());
  EXPECT_FALSE(window("SBAwayWindow")->hidden());
  drag({50, 432}, {200, 432});
  EXPECT_TRUE(board.locked()) << "not at the end";
  pump(0.5);
  drag({200, 432}, {310, 432});
  EXPECT_TRUE(board.locked()) << "not by the knob, which has sprung back";
  drag({50, 432}, {310, 432});
  EXPECT_FALSE(board.locked());
  EXPECT_TRUE(board.busy());
  rest();
  EXPECT_TRUE(window("SBAwayWindow")->hidden());
  EXPECT_TRUE(window("SBAwayWindow")->subviews().empty());

  board.pressLock();
  board.unlock();
  board.pressLock();  // While the lock screen is still sliding away.
  rest();
  EXPECT_TRUE(board.locked());
  EXPECT_EQ(window("SBAwayWindow")->subviews().at(0)->frame(), CGRectMake(0, 0, 320, 480));
}

}  // namespace
}  // namespace host::test
