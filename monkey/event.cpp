#include "monkey/event.h"

#include <map>
#include <sstream>
#include <stdexcept>

#include "host/script_parser.h"

namespace monkey {
namespace {

const std::map<std::string_view, FileChange> fileChanges{{"remove", FileChange::Remove},
                                                         {"restore", FileChange::Restore},
                                                         {"spoil-folder", FileChange::MakeFolder},
                                                         {"spoil-empty", FileChange::MakeEmpty},
                                                         {"spoil-noise", FileChange::MakeNoise}};

[[noreturn]] void refuse(const std::string& line) { throw std::invalid_argument("no event: " + line); }

PropertyList valueOf(const std::string& xml, const std::string& line) {
  const std::string document = "<plist version=\"1.0\">" + xml + "</plist>";
  auto value = propertyListWithData(NSData(document.begin(), document.end()));
  if (!value) refuse(line);
  return std::move(*value);
}

/// Those that take time of their own, or write files, are for scripts.
bool happensAtOnce(const host::ScriptCommand& command) {
  return std::visit(
      []<class Command>(const Command&) {
        using namespace host;
        return !(std::is_same_v<Command, TapCommand> || std::is_same_v<Command, SwipeCommand> ||
                 std::is_same_v<Command, ScreenshotCommand> || std::is_same_v<Command, RecordVideoCommand> ||
                 std::is_same_v<Command, RecordStopCommand> || std::is_same_v<Command, DescribeAllCommand> ||
                 std::is_same_v<Command, ListAppsCommand>);
      },
      command);
}

std::optional<Event> parseScriptEvent(const std::string& line) {
  auto command = host::parseScriptLine(line);
  if (!command) return std::nullopt;
  if (!happensAtOnce(*command)) refuse(line);
  return std::move(*command);
}

}  // namespace

std::optional<Event> parseEvent(const std::string& line) {
  std::istringstream words(line);
  std::string verb, name;
  words >> verb >> name;
  if (verb == "look") return LookEvent();
  if (verb == "put-in-order") return PutInOrderEvent();
  const auto change = fileChanges.find(verb);
  if (verb != "set" && change == fileChanges.end()) return parseScriptEvent(line);
  const DeviceFile* file = findDeviceFile(name);
  if (!file) refuse(line);
  if (verb != "set") return FileEvent{change->second, file};
  std::string key, xml;
  words >> key;
  std::getline(words, xml);
  return SetEvent{file, key, valueOf(xml, line)};
}

BootEvent parseBoot(const std::string& line) {
  std::istringstream words(line);
  std::string verb, model;
  words >> verb >> model;
  BootEvent boot{host::findDeviceModel(model)};
  if (verb != "boot" || !boot.model) refuse(line);
  const std::map<std::string, bool BootEvent::*> flags{
      {"locked", &BootEvent::locked}, {"names", &BootEvent::names}, {"activator", &BootEvent::activator}};
  for (std::string word; words >> word;) {
    const auto flag = flags.find(word);
    if (flag == flags.end()) refuse(line);
    boot.*flag->second = true;
  }
  return boot;
}

}  // namespace monkey
