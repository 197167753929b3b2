#include "host/settings/describe_panes.h"

#include <map>

#include "host/settings/preference_values.h"

namespace host {
namespace {

/// The property lists of the domains, each read once.
class Files {
 public:
  const PropertyListDictionary& file(const std::string& domain) {
    const auto [entry, isNew] = files_.try_emplace(domain);
    if (isNew)
      entry->second =
          dictionaryWithContentsOfFile(preferencesPath(domain)).value_or(PropertyListDictionary());
    return entry->second;
  }

 private:
  std::map<std::string, PropertyListDictionary> files_;
};

/// What the control shows for a file that may lack the key; null for no application.
Json current(const PreferenceItem& item, const PropertyListDictionary& file, const std::string& key) {
  const PropertyList* stored = find(file, key);
  Json shown = stored ? shownValue(item.cell, *stored) : Json();
  return shown.is_null() && item.defaultValue ? shownValue(item.cell, *item.defaultValue) : shown;
}

/// What a control has beside its value.
void describeCell(const auto&, Json&) {}

void describeCell(const ChoiceCell& cell, Json& json) {
  Json& choices = json["choices"] = Json::array();
  for (const Choice& choice : cell.choices)
    choices.push_back({{"value", choice.value}, {"title", choice.title}});
}

void describeCell(const SliderCell& cell, Json& json) {
  json["min"] = jsonNumber(cell.min);
  json["max"] = jsonNumber(cell.max);
  json["step"] = jsonNumber(cell.step);
}

Json describeGroup(const PreferenceGroup& group) {
  Json json = {{"cell", "group"}, {"label", group.label}};
  if (!group.footer.empty()) json["footer"] = group.footer;
  return json;
}

Json describeItem(const PreferenceItem& item, const PropertyListDictionary& file,
                  const std::vector<std::string>& bundles) {
  const bool isList = std::holds_alternative<AppListCell>(item.cell);
  Json json = {{"cell", std::visit([](const auto& cell) { return cell.kind; }, item.cell)},
               {"domain", item.domain},
               {isList ? "keyPrefix" : "key", item.key},
               {"label", item.label}};
  if (isList) {
    Json& values = json["values"] = Json::object();
    for (const std::string& bundle : bundles) values[bundle] = current(item, file, item.key + bundle) == true;
  } else {
    json["value"] = current(item, file, item.key);
  }
  std::visit([&](const auto& cell) { describeCell(cell, json); }, item.cell);
  json["respring"] = item.requiresRespring;
  return json;
}

}  // namespace

Json describePanes(const std::vector<PreferencePane>& panes, const std::vector<std::string>& bundles) {
  Files files;
  Json result = Json::array();
  for (const PreferencePane& pane : panes) {
    Json rows = Json::array();
    for (const auto& row : pane.rows) {
      const auto* item = std::get_if<PreferenceItem>(&row);
      rows.push_back(item ? describeItem(*item, files.file(item->domain), bundles)
                          : describeGroup(std::get<PreferenceGroup>(row)));
    }
    result.push_back({{"title", pane.title}, {"items", rows}});
  }
  return result;
}

}  // namespace host
