#include "host/settings/preference_panes.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <optional>

#include "host/failure.h"
#include "host/settings/bad_setting.h"
#include "host/settings/describe_panes.h"
#include "host/settings/preference_values.h"
#include "platform/foundation/darwin_notification_center.h"

namespace host {
namespace {

constexpr std::size_t largestSettings = 1 << 20;  // Bytes, as described.

/// What a pane's description may grow to, whatever its values become.
std::size_t largestDescription(const PreferencePane& pane, const std::vector<std::string>& bundles) {
  return jsonLine(describePanes({pane}, bundles)).size() + pane.rows.size() * longestShownText;
}

template <class Wanted>
bool is(const PreferenceItem& item) {
  return std::holds_alternative<Wanted>(item.cell);
}

/// The value that the file gets, nothing to remove the key. Throws Failure with the cause alone.
std::optional<PropertyList> newValue(const PreferenceItem& item, const Json& value) {
  if (value.is_null() && is<AppCell>(item)) return std::nullopt;
  return storedValue(item.cell, value);
}

/// Names come from whoever sets; a cause is one line all the same.
std::string oneLine(std::string text) {
  std::ranges::replace_if(
      text, [](unsigned char character) { return std::iscntrl(character) != 0; }, ' ');
  return text;
}

}  // namespace

PreferencePanes::PreferencePanes(const std::vector<AppListing>& applications) {
  for (const AppListing& application : applications) bundles_.push_back(application.bundle);
  std::size_t size = 0;
  for (PreferencePane& pane : readPreferencePanes(warnings_)) {
    const std::size_t grown = size + largestDescription(pane, bundles_);
    if (grown > largestSettings) {
      warnings_.push_back(
          fmt::format("{}: the settings would take more than {} bytes", pane.file, largestSettings));
    } else {
      size = grown;
      panes_.push_back(std::move(pane));
    }
  }
  atStart_ = describePanes(panes_, bundles_);
}

std::set<std::string> PreferencePanes::notifications() const {
  std::set<std::string> names;
  for (const PreferenceItem* item : items()) names.insert(item->notification);
  return names;
}

Json PreferencePanes::describe() const {
  Json panes = describePanes(panes_, bundles_);
  for (std::size_t pane = 0; pane < panes.size(); ++pane) {
    Json& items = panes[pane]["items"];
    for (std::size_t i = 0; i < items.size(); ++i) {
      Json& item = items[i];
      const bool isDue = item != atStart_[pane]["items"][i];
      if (item.value("respring", false)) item["due"] = isDue;
    }
  }
  return panes;
}

void PreferencePanes::set(const std::string& domain, const std::string& key, const Json& value) {
  const PreferenceItem* item = itemOf(domain, key);
  std::optional<PropertyList> stored;
  try {
    if (!item) throw Failure("no pane has this key");
    stored = newValue(*item, value);
    if (is<AppCell>(*item) && stored && !isInstalled(value)) throw Failure("no such application");
  } catch (const Failure& cause) {
    throw BadSetting(oneLine(domain + " " + key + ": " + cause.what()));
  }

  const std::string path = preferencesPath(domain);
  auto file = dictionaryWithContentsOfFile(path);
  if (!file) file = defaultsOf(domain);
  if (stored) {
    file->insert_or_assign(key, *stored);
  } else {
    file->erase(key);
  }
  if (!writeDictionaryToFile(*file, path)) throw Failure(path + ": cannot be written");
  CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(), item->notification);
}

std::vector<const PreferenceItem*> PreferencePanes::items() const {
  std::vector<const PreferenceItem*> result;
  for (const PreferencePane& pane : panes_)
    for (const auto& row : pane.rows)
      if (const auto* item = std::get_if<PreferenceItem>(&row)) result.push_back(item);
  return result;
}

/// The item that a key belongs to, or null.
const PreferenceItem* PreferencePanes::itemOf(const std::string& domain, const std::string& key) const {
  for (const PreferenceItem* item : items()) {
    if (item->domain != domain) continue;
    const bool completesPrefix =
        is<AppListCell>(*item) && key.starts_with(item->key) && isInstalled(key.substr(item->key.size()));
    if (completesPrefix || (!is<AppListCell>(*item) && key == item->key)) return item;
  }
  return nullptr;
}

/// A new file. Of a list of applications it holds nothing: those that it lacks are the reader's to judge
/// anyway, since more may be installed.
PropertyListDictionary PreferencePanes::defaultsOf(const std::string& domain) const {
  PropertyListDictionary defaults;
  for (const PreferenceItem* item : items())
    if (item->domain == domain && item->defaultValue && !is<AppListCell>(*item))
      defaults.emplace(item->key, *item->defaultValue);
  return defaults;
}

bool PreferencePanes::isInstalled(const std::string& bundle) const {
  return std::ranges::find(bundles_, bundle) != bundles_.end();
}

}  // namespace host
