#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "host/device_model.h"
#include "host/script_command.h"
#include "monkey/device_files.h"
#include "platform/foundation/property_list.h"

namespace monkey {

/// What happens to a device at one moment, a line of text each. Every event stands by itself: whether it can
/// happen just then is for the device to say, so that any of them can be left out.

/// set FILE KEY XML: a value is written into a property list, and the change of preferences is posted.
struct SetEvent {
  const DeviceFile* file;
  std::string key;
  PropertyList value;
};

/// remove FILE, restore FILE, spoil-folder FILE, spoil-empty FILE, spoil-noise FILE: the file goes, is as it
/// was at the boot, is a folder, empty, or full of something else.
enum class FileChange { Remove, Restore, MakeFolder, MakeEmpty, MakeNoise };
struct FileEvent {
  FileChange change;
  const DeviceFile* file;
};

/// put-in-order: somebody lifts every finger, restores every file, and has the device upright and unlocked.
struct PutInOrderEvent {};

/// look: the screen is drawn, and the picture held against what it must be.
struct LookEvent {};

/// The script's commands are those of docs/host.md that one moment is enough for, and "wait".
using Event = std::variant<host::ScriptCommand, SetEvent, FileEvent, PutInOrderEvent, LookEvent>;

/// Nothing for a line that is blank or a comment. Throws std::invalid_argument for what is no event.
std::optional<Event> parseEvent(const std::string& line);

/// "boot MODEL", then any of "locked", "names" (of applications, beside their icons), "activator".
struct BootEvent {
  const host::DeviceModel* model;
  bool locked = false, names = false, activator = false;
};
/// Throws std::invalid_argument.
BootEvent parseBoot(const std::string& line);

}  // namespace monkey
