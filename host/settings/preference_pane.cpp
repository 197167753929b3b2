#include "host/settings/preference_pane.h"

#include <fmt/format.h>

#include <cmath>
#include <string_view>

#include "host/failure.h"
#include "host/settings/preference_values.h"
#include "platform/foundation/file_manager.h"

namespace host {
namespace {

constexpr const char* panesFolder = "/Library/PreferenceLoader/Preferences";
constexpr std::string_view paneEnding = ".plist";
constexpr const char* groupCell = "PSGroupCell";

constexpr std::size_t mostPanes = 100;  // Files; those that are not usable count.
constexpr std::size_t mostRows = 200;   // Of a pane.

// Bounds within which integers and reals hold the same whole numbers.
constexpr double largestBound = 1e15;

using Dictionary = PropertyListDictionary;

/// The value of a key that has to be there, and to be of that type.
template <class T>
const T& required(const Dictionary& from, const char* key) {
  const PropertyList* value = find(from, key);
  const T* typed = value ? value->as<T>() : nullptr;
  if (!typed) throw Failure("no usable " + std::string(key));
  return *typed;
}

std::string text(const Dictionary& from, const char* key) {
  const auto& value = required<std::string>(from, key);
  if (value.empty()) throw Failure("empty " + std::string(key));
  return value;
}

/// For what need not be there; of the wrong type it is unusable all the same.
template <class T>
T ifThere(const Dictionary& from, const char* key) {
  return find(from, key) ? required<T>(from, key) : T();
}

double bound(const Dictionary& from, const char* key) {
  const PropertyList* value = find(from, key);
  const Json number = value ? plainJson(*value) : Json();
  if (!number.is_number() || !(std::abs(number.get<double>()) <= largestBound))
    throw Failure("no usable " + std::string(key));
  return number;
}

std::string domain(const Dictionary& item) {
  constexpr const char* key = "defaults";
  std::string name = text(item, key);
  if (name.find('/') != std::string::npos) throw Failure(std::string(key) + " is no plain file name");
  return name;
}

ChoiceCell choiceCell(const Dictionary& item) {
  const auto& values = required<PropertyListArray>(item, "validValues");
  const auto& titles = required<PropertyListArray>(item, "validTitles");
  if (values.empty() || values.size() != titles.size())
    throw Failure("validValues and validTitles do not match");
  ChoiceCell cell;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto *value = values[i].as<std::string>(), *title = titles[i].as<std::string>();
    if (!value || !title) throw Failure("validValues and validTitles are not all strings");
    cell.choices.push_back({*value, *title});
  }
  return cell;
}

SliderCell sliderCell(const Dictionary& item) {
  const SliderCell cell{bound(item, "min"), bound(item, "max"), bound(item, "step")};
  if (cell.min >= cell.max || cell.step <= 0) throw Failure("min, max and step span no range");
  return cell;
}

Cell cellOf(const Dictionary& item) {
  const std::string cell = text(item, "cell");
  if (cell == SwitchCell::cell) return SwitchCell();
  if (cell == ChoiceCell::cell) return choiceCell(item);
  if (cell == SliderCell::cell) return sliderCell(item);
  if (cell == ColorCell::cell) return ColorCell();
  if (cell == AppCell::cell) return AppCell();
  if (cell == AppListCell::cell) return AppListCell();
  throw Failure("unknown cell " + cell);
}

std::optional<PropertyList> defaultValue(const Dictionary& item, const Cell& cell) {
  constexpr const char* key = "default";
  const PropertyList* given = find(item, key);
  const bool mayLack = std::holds_alternative<AppCell>(cell) || std::holds_alternative<AppListCell>(cell);
  if (!given && mayLack) return std::nullopt;
  if (!given) throw Failure("no " + std::string(key));
  try {
    return storedValue(cell, plainJson(*given));
  } catch (const Failure& failure) {
    throw Failure(std::string(key) + " is " + failure.what());
  }
}

PreferenceGroup readGroup(const Dictionary& row) {
  return {ifThere<std::string>(row, "label"), ifThere<std::string>(row, "footerText")};
}

PreferenceItem readItem(const Dictionary& row) {
  const Cell cell = cellOf(row);
  const bool isList = std::holds_alternative<AppListCell>(cell);
  return {.cell = cell,
          .label = text(row, "label"),
          .domain = domain(row),
          .key = text(row, isList ? "keyPrefix" : "key"),
          .defaultValue = defaultValue(row, cell),
          .notification = text(row, "PostNotification"),
          .requiresRespring = ifThere<bool>(row, "requiresRespring")};
}

PreferencePane readPane(const std::string& path) {
  const auto file = dictionaryWithContentsOfFile(path);
  if (!file) throw Failure("not a readable property list");
  PreferencePane pane{path, text(required<Dictionary>(*file, "entry"), "label"), {}};
  const auto& items = required<PropertyListArray>(*file, "items");
  if (items.size() > mostRows) throw Failure(fmt::format("more than {} items", mostRows));
  for (const PropertyList& entry : items) {
    try {
      const auto* row = entry.as<Dictionary>();
      if (!row) throw Failure("no dictionary");
      if (text(*row, "cell") == groupCell) {
        pane.rows.emplace_back(readGroup(*row));
      } else {
        pane.rows.emplace_back(readItem(*row));
      }
    } catch (const Failure& failure) {
      throw Failure("item " + std::to_string(pane.rows.size() + 1) + ": " + failure.what());
    }
  }
  return pane;
}

}  // namespace

bool SliderCell::isWhole() const { return std::trunc(step) == step; }

std::vector<PreferencePane> readPreferencePanes(std::vector<std::string>& warnings) {
  std::vector<PreferencePane> panes;
  std::size_t count = 0;
  for (const std::string& name : NSFileManager::defaultManager().contentsOfDirectory(panesFolder)) {
    if (!name.ends_with(paneEnding)) continue;
    if (++count > mostPanes) {
      warnings.push_back(fmt::format("{}: more than {} panes", panesFolder, mostPanes));
      break;
    }
    const std::string path = std::string(panesFolder) + "/" + name;
    try {
      panes.push_back(readPane(path));
    } catch (const Failure& failure) {
      warnings.push_back(path + ": " + failure.what());
    }
  }
  return panes;
}

}  // namespace host
