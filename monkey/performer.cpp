#include "monkey/performer.h"

#include <fstream>
#include <sstream>

#include "host/bad_script_line.h"
#include "host/device_commands.h"
#include "host/failure.h"
#include "host/script_parser.h"
#include "host/touch_commands.h"
#include "platform/foundation/file_manager.h"
#include "platform/foundation/run_loop.h"
#include "platform/uikit/touch_dispatcher.h"
#include "switcher/device_paths.h"

namespace monkey {
namespace {

namespace fs = std::filesystem;

const std::map<std::string, std::string> pathsByFile{
    {"preferences", "/var/mobile/Library/Preferences/com.zantric.vistrel.plist"},
    {"apps", "/var/mobile/Library/Preferences/com.zantric.vistrel-apps.plist"},
    {"recents", "/var/mobile/Library/Preferences/com.apple.springboard.plist"},
    {"grab-picture", vistrel::grabImagePath},
    {"home-picture", vistrel::homeScreenPicturePath},
};

/// Read and written past the device, which may refuse.
fs::path machinePath(const std::string& file) {
  return *NSFileManager::defaultManager().resolve(pathsByFile.at(file));
}

std::optional<std::string> contentsOf(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

void write(const fs::path& path, std::string_view contents) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << contents;
}

vistrel::test::DeviceSetup setupOf(const std::string& bootLine) {
  std::istringstream words(bootLine);
  std::string word;
  vistrel::test::DeviceSetup setup;
  setup.activator = false;
  words >> word >> setup.model;
  while (words >> word) {
    if (word == "locked") setup.locked = true;
    if (word == "names") setup.preferences.emplace("appNames", true);
    if (word == "activator") setup.activator = true;
  }
  return setup;
}

void performEach(vistrel::test::TestDevice& device, const host::ScriptCommand& command) {
  std::visit(
      [&]<class Command>(const Command& each) {
        if constexpr (std::is_same_v<Command, host::TouchCommand>) {
          const bool lands = each.action == host::TouchAction::Down;
          const bool isDown = TouchDispatcher::shared().isDown(each.finger);
          if (lands != isDown) host::performTouch(each, 0, RunLoop::main().now());
        } else if constexpr (std::is_same_v<Command, host::WaitCommand>) {
          device.pump(each.seconds);
        } else if constexpr (requires { host::perform(device.springBoard(), each); }) {
          host::perform(device.springBoard(), each);
        }
      },
      command);
}

}  // namespace

Performer::Performer(const std::string& bootLine) : device_(setupOf(bootLine)) {
  for (const auto& [file, path] : pathsByFile) pristine_.emplace(file, contentsOf(machinePath(file)));
}

void Performer::perform(const std::string& line) {
  std::istringstream words(line);
  std::string verb, file, key;
  words >> verb >> file;
  if (verb == "look") {
    watch_.look();
  } else if (verb == "put-in-order") {
    putInOrder();
  } else if (!pathsByFile.contains(file)) {
    performScript(line);
  } else if (verb == "set") {
    std::string xml;
    words >> key;
    std::getline(words, xml);
    set(file, key, xml);
  } else {
    spoil(verb, file);
  }
}

void Performer::performScript(std::string_view line) {
  try {
    performEach(device_, *host::parseScriptLine(line));
  } catch (const host::Failure&) {  // Not now.
  }
  device_.pump(0);
}

void Performer::set(const std::string& file, const std::string& key, const std::string& xml) {
  const std::string document = "<plist version=\"1.0\">" + xml + "</plist>";
  const auto value = propertyListWithData(NSData(document.begin(), document.end()));
  const std::string& path = pathsByFile.at(file);
  PropertyListDictionary dictionary = dictionaryWithContentsOfFile(path).value_or(PropertyListDictionary());
  if (value) dictionary.insert_or_assign(key, *value);
  writeDictionaryToFile(dictionary, path);
  device_.postChange();
}

void Performer::putInOrder() {
  constexpr double longestUnlocking = 1;
  host::cancelTouches(0, RunLoop::main().now());
  host::SpringBoard& springBoard = device_.springBoard();
  springBoard.hideKeyboard();
  springBoard.rotate(UIDeviceOrientation::Portrait);
  springBoard.unlock();
  device_.pump(longestUnlocking);
  for (const auto& [file, path] : pathsByFile) spoil("restore", file);
  device_.postChange();
}

void Performer::spoil(const std::string& fault, const std::string& file) {
  const fs::path path = machinePath(file);
  fs::remove_all(path);
  if (fault == "spoil-folder") fs::create_directories(path);
  if (fault == "spoil-empty") write(path, "");
  if (fault == "spoil-noise") write(path, "bplist00 and then some noise\xff\xd8\xff");
  if (fault == "restore" && pristine_.at(file)) write(path, *pristine_.at(file));
}

}  // namespace monkey
