#include "monkey/performer.h"

#include <fstream>
#include <iterator>
#include <variant>

#include "host/device_commands.h"
#include "host/failure.h"
#include "host/touch_commands.h"
#include "platform/foundation/file_manager.h"
#include "platform/foundation/run_loop.h"
#include "platform/uikit/touch_dispatcher.h"

namespace monkey {
namespace {

namespace fs = std::filesystem;

constexpr int firstFinger = 0;
constexpr const char* noise = "bplist00 and then some noise\xff\xd8\xff";

vistrel::test::DeviceSetup setupOf(const BootEvent& boot) {
  vistrel::test::DeviceSetup setup;
  setup.model = boot.model->name;
  setup.locked = boot.locked;
  setup.activator = boot.activator;
  if (boot.names) setup.preferences.emplace("appNames", true);
  return setup;
}

// Files are read and written past the device, which may refuse.

fs::path machinePath(const DeviceFile& file) { return *NSFileManager::defaultManager().resolve(file.path); }

std::optional<std::string> contentsOf(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

void write(const fs::path& path, std::string_view contents) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << contents;
}

}  // namespace

Performer::Performer(const BootEvent& boot) : device_(setupOf(boot)) {
  for (const DeviceFile& file : deviceFiles()) contentsAtBoot_.emplace(&file, contentsOf(machinePath(file)));
}

void Performer::perform(const Event& event) {
  std::visit([this](const auto& each) { run(each); }, event);
}

void Performer::run(const host::ScriptCommand& command) {
  const auto perform = [this]<class Command>(const Command& each) {
    if constexpr (std::is_same_v<Command, host::TouchCommand>) {
      const bool lands = each.action == host::TouchAction::Down;
      const bool isDown = TouchDispatcher::shared().isDown(each.finger);
      if (lands != isDown) host::performTouch(each, firstFinger, RunLoop::main().now());
    } else if constexpr (std::is_same_v<Command, host::WaitCommand>) {
      device_.pump(each.seconds);
    } else if constexpr (requires { host::perform(device_.springBoard(), each); }) {
      host::perform(device_.springBoard(), each);
    }
  };
  try {
    std::visit(perform, command);
  } catch (const host::Failure&) {  // Not now.
  }
  device_.pump(0);
}

void Performer::run(const SetEvent& event) {
  PropertyListDictionary dictionary =
      dictionaryWithContentsOfFile(event.file->path).value_or(PropertyListDictionary());
  dictionary.insert_or_assign(event.key, event.value);
  writeDictionaryToFile(dictionary, event.file->path);
  device_.postChange();
}

void Performer::run(const FileEvent& event) {
  const fs::path path = machinePath(*event.file);
  fs::remove_all(path);
  switch (event.change) {
    case FileChange::Remove:
      break;
    case FileChange::Restore:
      if (const auto& contents = contentsAtBoot_.at(event.file)) write(path, *contents);
      break;
    case FileChange::MakeFolder:
      fs::create_directories(path);
      break;
    case FileChange::MakeEmpty:
      write(path, "");
      break;
    case FileChange::MakeNoise:
      write(path, noise);
      break;
  }
}

void Performer::run(const PutInOrderEvent&) {
  constexpr double longestUnlocking = 1;
  host::cancelTouches(firstFinger, RunLoop::main().now());
  host::SpringBoard& springBoard = device_.springBoard();
  springBoard.hideKeyboard();
  springBoard.rotate(UIDeviceOrientation::Portrait);
  springBoard.unlock();
  device_.pump(longestUnlocking);
  for (const DeviceFile& file : deviceFiles()) run(FileEvent{FileChange::Restore, &file});
  device_.postChange();
}

}  // namespace monkey
