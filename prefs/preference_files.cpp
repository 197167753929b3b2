#include "prefs/preference_files.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <variant>

#include "platform/foundation/file_manager.h"
#include "platform/uikit/ui_color_archive.h"
#include "prefs/settings.h"

namespace vistrel {
namespace {

constexpr std::string_view appKeyPrefix = "ALValue-";
constexpr const char* favouriteKeys[] = {"fav1", "fav2", "fav3", "fav4", "fav5"};

/// What a file that lacks a key does to the setting.
enum class Absent { Keep, Clear };

/// A key that is carried in the file for the settings pane; nothing here depends on it.
struct Unused {};
constexpr bool unusedDefault = true;

/// As a factor, far beyond any screen; all that is computed with it stays finite.
constexpr float largestIconSize = 1e6f;

/// One key: which setting it is, and what a file without it means.
struct Key {
  const char* name;
  std::variant<Unused, std::string Settings::*, bool Settings::*, float Settings::*, std::int32_t Settings::*,
               UIColor Settings::*>
      setting;
  Absent absent = Absent::Keep;
};

/// In the order in which they are read.
const Key keys[] = {
    {"swipeDirection", &Settings::swipeDirection},
    {"animationStyle", &Settings::animationStyle},
    {"flatAnimationStyle", &Settings::flatAnimationStyle},
    {"upDownOpen", &Settings::upDownOpen},
    {"appNames", &Settings::appNames},
    {"blur", &Settings::blur},
    {"dim", &Settings::dim},
    {"enabled", &Settings::enabled},
    {"iconFade", &Settings::iconFade},
    {"nameFade", &Settings::nameFade, Absent::Clear},
    {"activatorOnly", &Settings::activatorOnly, Absent::Clear},
    {"lsEnabled", &Settings::lsEnabled, Absent::Clear},
    {"liquid", Unused()},
    {"holdDownAction", Unused()},
    {"favouritesEnabled", &Settings::favouritesEnabled, Absent::Clear},
    {"appNamePosition", &Settings::appNamePosition, Absent::Clear},
    {"iconAnimation", &Settings::iconAnimation, Absent::Clear},
    {"nameAnimation", &Settings::nameAnimation, Absent::Clear},
    {"background", &Settings::background},
    {"swipeActionEnabled", &Settings::swipeActionEnabled},
    {"swipeUpAction", &Settings::swipeUpAction},
    {"swipeDownAction", &Settings::swipeDownAction},
    {"iconSize", &Settings::iconSize},
    {"visibleEdge", &Settings::visibleEdge},
    {"topColor", &Settings::topColor},
    {"bottomColor", &Settings::bottomColor},
};

/// What a new file holds for a setting: its built-in default.
PropertyList stored(const std::string& text) { return text; }
PropertyList stored(bool flag) { return flag; }
PropertyList stored(std::int32_t number) { return number; }
PropertyList stored(const UIColor& color) { return archivedDataWithRootObject(color); }
PropertyList stored(float number) { return static_cast<double>(number); }

PropertyList defaultOf(const Key& key) {
  return std::visit(
      [](auto setting) -> PropertyList {
        if constexpr (std::is_same_v<decltype(setting), Unused>) {
          return unusedDefault;
        } else {
          return stored(Settings().*setting);
        }
      },
      key.setting);
}

/// The stored value as the setting's type, or nothing where it cannot be one. A stored zero is no size, nor
/// is what no geometry can be made of.
std::optional<std::string> convert(const PropertyList& value, std::string Settings::*) {
  auto* text = value.as<std::string>();
  return text ? std::optional(*text) : std::nullopt;
}
std::optional<bool> convert(const PropertyList& value, bool Settings::*) { return value.boolValue(); }
std::optional<float> convert(const PropertyList& value, float Settings::*) {
  auto number = value.floatValue();
  return number && *number != 0 && std::abs(*number) <= largestIconSize ? number : std::nullopt;
}
std::optional<std::int32_t> convert(const PropertyList& value, std::int32_t Settings::*) {
  auto number = value.intValue();
  return number && *number != 0 ? number : std::nullopt;
}

/// An archive is a property list of its own, whose parsing costs as much as that of all other keys; and it is
/// seldom another than when the file was last read.
std::optional<UIColor> colorIn(const NSData& archive) {
  struct Known {
    NSData archive;
    std::optional<UIColor> color;
  };
  static std::array<Known, 2> known;  // There are two such keys.
  static std::size_t oldest = 0;
  const auto found = std::ranges::find(known, archive, &Known::archive);
  if (found != known.end()) return found->color;
  Known& latest = known[std::exchange(oldest, (oldest + 1) % known.size())];
  latest = {archive, unarchiveColorWithData(archive)};
  return latest.color;
}
std::optional<UIColor> convert(const PropertyList& value, UIColor Settings::*) {
  auto* archive = value.as<NSData>();
  return archive ? colorIn(*archive) : std::nullopt;
}

void applyKey(const Key& key, const PropertyList* inFile) {
  std::visit(
      [&](auto setting) {
        if constexpr (!std::is_same_v<decltype(setting), Unused>) {
          auto& target = settings.*setting;
          if (auto value = inFile ? convert(*inFile, setting) : std::nullopt) {
            target = *value;
          } else if (key.absent == Absent::Clear) {
            target = {};
          }
        }
      },
      key.setting);
}

/// The file's dictionary: nothing when there is no file, an empty one when it cannot be read. Asks whether
/// there is one only when it could not be read.
std::optional<PropertyListDictionary> readIfThere(const char* path) {
  auto dictionary = dictionaryWithContentsOfFile(path);
  if (!dictionary && NSFileManager::defaultManager().fileExists(path)) dictionary.emplace();
  return dictionary;
}

std::string withoutPrefix(std::string key) {
  for (auto at = key.find(appKeyPrefix); at != std::string::npos; at = key.find(appKeyPrefix, at)) {
    key.erase(at, appKeyPrefix.size());
  }
  return key;
}

}  // namespace

std::optional<PropertyListDictionary> readPreferencesFile() { return readIfThere(preferencesPath); }

PropertyListDictionary defaultPreferences() {
  PropertyListDictionary preferences;
  for (const Key& key : keys) preferences.emplace(key.name, defaultOf(key));
  return preferences;
}

void writePreferencesFile(const PropertyListDictionary& preferences) {
  writeDictionaryToFile(preferences, preferencesPath);
}

void applyPreferences(const PropertyListDictionary& preferences) {
  for (const Key& key : keys) applyKey(key, find(preferences, key.name));
  if (settings.activatorOnly) settings.visibleEdge = 0;

  NSStringArray favourites;
  for (const char* name : favouriteKeys) {
    const PropertyList* value = find(preferences, name);
    if (auto* identifier = value ? value->as<std::string>() : nullptr) favourites.push_back(*identifier);
  }
  favouriteApps = std::make_shared<const NSStringArray>(std::move(favourites));
}

void readDisabledApps() {
  const auto apps = readIfThere(appsPath);
  if (!apps) return;
  disabledApps.clear();
  for (const auto& [key, value] : *apps) {
    if (value.boolValue().value_or(false)) disabledApps.push_back(withoutPrefix(key));
  }
}

}  // namespace vistrel
