#include "tests/support/test_device.h"

#include <stdlib.h>

#include <fstream>

#include "platform/activator/activator.h"
#include "platform/foundation/darwin_notification_center.h"
#include "platform/uikit/touch_dispatcher.h"
#include "platform/uikit/ui_color_archive.h"
#include "prefs/preference_files.h"
#include "startup/hook_table.h"
#include "switcher/layout.h"
#include "switcher/shared_state.h"

namespace vistrel::test {
namespace {

namespace fs = std::filesystem;

constexpr int finger = 0;
constexpr const char* springBoardFile = "var/mobile/Library/Preferences/com.apple.springboard.plist";

void writeFile(const fs::path& path, const NSData& data) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(data.data()), std::ssize(data));
}

void writePlist(const fs::path& path, const PropertyListDictionary& dictionary) {
  writeFile(path, dataWithPropertyList(dictionary, PropertyListFormat::Xml));
}

fs::path makeRoot() {
  std::string pattern = fs::temp_directory_path() / "vistrel-test-XXXXXX";
  return mkdtemp(pattern.data());
}

void writeBundles(const fs::path& root) {
  for (const std::string& bundle : testBundles) {
    const std::string name = bundle.substr(bundle.rfind('.') + 1);
    writePlist(root / "Applications" / (name + ".app") / "Info.plist",
               {{"CFBundleIdentifier", bundle},
                {"CFBundleDisplayName", name},
                {"UISupportedInterfaceOrientations",
                 PropertyListArray{"UIInterfaceOrientationPortrait", "UIInterfaceOrientationLandscapeLeft",
                                   "UIInterfaceOrientationLandscapeRight"}}});
  }
}

void installPane(const fs::path& root) {
  const fs::path folder = "Library/PreferenceLoader";
  fs::create_directories(root / folder);
  fs::copy(STATIC_ROOT / folder, root / folder, fs::copy_options::recursive);
}

template <class Send>
bool handledBy(Send send) {
  auto event = std::make_shared<LAEvent>();
  (LAActivator::sharedInstance().*send)(*event);
  return event->handled();
}

}  // namespace

const std::vector<std::string> testBundles = {"com.example.one", "com.example.two", "com.example.three",
                                              "com.example.four", "com.example.five"};

PropertyList archived(float red, float green, float blue) {
  return archivedDataWithRootObject(UIColor::colorWithRed(red, green, blue, 1));
}

TestDevice::TestDevice(DeviceSetup setup) : root_(makeRoot()) {
  writeBundles(root_);
  installPane(root_);
  if (setup.activator) writeFile(root_ / "var/lib/dpkg/info/libactivator.list", {});
  if (!setup.preferences.empty()) writePreferences(setup.preferences);
  if (!setup.disabledApps.empty()) {
    PropertyListDictionary apps;
    for (const std::string& bundle : setup.disabledApps) apps.emplace("ALValue-" + bundle, true);
    writePlist(pathOf(appsPath), apps);
  }
  if (!setup.recents.empty()) {
    PropertyListArray recents(setup.recents.begin(), setup.recents.end());
    writePlist(root_ / springBoardFile, {{"SBRecentDisplays", recents}});
  }
  host::BootOptions options{root_, *host::findDeviceModel(setup.model), false, setup.locked, nullptr};
  if (setup.loadsLibrary) options.alsoLoad = installHooks;
  springBoard_ = std::make_unique<host::SpringBoard>(options);
  settle();
}

TestDevice::~TestDevice() {
  springBoard_.reset();
  fs::remove_all(root_);
}

fs::path TestDevice::pathOf(std::string_view devicePath) const {
  return root_ / fs::path(devicePath).relative_path();
}

void TestDevice::pump(double seconds) { RunLoop::main().advanceBy(seconds); }

void TestDevice::settle() {
  constexpr double frame = 1.0 / 60;
  while (springBoard_->busy()) pump(frame);
  pump(frame);
}

void TestDevice::launch(const std::string& bundle) {
  springBoard_->launch(bundle);
  settle();
}

void TestDevice::home() {
  springBoard_->pressHome();
  settle();
}

void TestDevice::down(float x, float y) {
  TouchDispatcher::shared().down(finger, {x, y}, RunLoop::main().now());
}

void TestDevice::move(float x, float y) {
  TouchDispatcher::shared().move(finger, {x, y}, RunLoop::main().now());
}

void TestDevice::up() {
  TouchDispatcher& touches = TouchDispatcher::shared();
  touches.up(finger, touches.location(finger), RunLoop::main().now());
}

void TestDevice::tap(float x, float y) {
  down(x, y);
  up();
}

void TestDevice::drag(float x, float y, double seconds) {
  constexpr int steps = 20;
  const CGPoint start = TouchDispatcher::shared().location(finger);
  for (int step = 1; step <= steps; ++step) {
    pump(seconds / steps);
    const float part = static_cast<float>(step) / steps;
    move(start.x + (x - start.x) * part, start.y + (y - start.y) * part);
  }
}

void TestDevice::swipeIn(float y, float toX) {
  const bool fromRight = restingX() > 0;
  const float edge = 3;
  down(fromRight ? screenWidth - edge : edge, y);
  drag(toX, y);
}

bool TestDevice::receive() { return handledBy(&LAActivator::sendEvent); }
bool TestDevice::abort() { return handledBy(&LAActivator::sendAbort); }
bool TestDevice::deactivate() { return handledBy(&LAActivator::sendDeactivateEvent); }

void TestDevice::changePreferences(const PropertyListDictionary& changes) {
  PropertyListDictionary preferences = readPreferences();
  for (const auto& [key, value] : changes) preferences.insert_or_assign(key, value);
  writePreferences(preferences);
  postChange();
}

void TestDevice::deletePreferences() {
  fs::remove(pathOf(preferencesPath));
  postChange();
}

PropertyListDictionary TestDevice::readPreferences() const {
  std::ifstream file(pathOf(preferencesPath), std::ios::binary);
  const NSData data{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  auto list = propertyListWithData(data);
  auto* dictionary = list ? list->as<PropertyListDictionary>() : nullptr;
  return dictionary ? *dictionary : PropertyListDictionary();
}

void TestDevice::postChange() {
  CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(),
                                       "com.zantric.vistrel.prefsChanged");
  pump(0);
}

void TestDevice::writePreferences(const PropertyListDictionary& preferences) const {
  writePlist(pathOf(preferencesPath), preferences);
}

}  // namespace vistrel::test
