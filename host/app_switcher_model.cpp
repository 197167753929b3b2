#include "host/app_switcher_model.h"

#include <algorithm>

#include "platform/foundation/file_manager.h"
#include "platform/foundation/property_list.h"

namespace host {
namespace {

constexpr const char* preferencesPath = "/var/mobile/Library/Preferences/com.apple.springboard.plist";
constexpr const char* recentsKey = "SBRecentDisplays";

}  // namespace

AppSwitcherModel::AppSwitcherModel(const std::function<bool(const std::string&)>& isInstalled, Warn warn)
    : warn_(std::move(warn)) {
  declareInstanceVariable(*this, "_recentDisplayIdentifiers", recentDisplayIdentifiers_);

  const auto preferences = dictionaryWithContentsOfFile(preferencesPath);
  if (!preferences && NSFileManager::defaultManager().fileExists(preferencesPath))
    warn_(std::string(preferencesPath) +
          ": no readable property list; the recent applications are forgotten");
  const PropertyList* value = preferences ? find(*preferences, recentsKey) : nullptr;
  const auto* entries = value ? value->as<PropertyListArray>() : nullptr;
  if (!entries) return;
  auto& recents = recentDisplayIdentifiers_;
  for (const PropertyList& entry : *entries) {
    const auto* identifier = entry.as<std::string>();
    if (identifier && isInstalled(*identifier) && std::ranges::find(recents, *identifier) == recents.end())
      recents.push_back(*identifier);
  }
}

void AppSwitcherModel::registerMethods() {
  Class& cls = SBAppSwitcherModel::objcClass();
  cls.addClassMethod(
      "sharedInstance", +[]() -> SBAppSwitcherModel* { return shared(); });
  cls.addMethod(
      "remove:", +[](SBAppSwitcherModel& self, std::string identifier) {
        static_cast<AppSwitcherModel&>(self).drop(identifier);
      });
}

void AppSwitcherModel::moveToFront(const std::string& identifier) {
  auto& recents = recentDisplayIdentifiers_;
  if (!recents.empty() && recents.front() == identifier) return;
  std::erase(recents, identifier);
  recents.insert(recents.begin(), identifier);
  save();
}

void AppSwitcherModel::drop(const std::string& identifier) {
  if (std::erase(recentDisplayIdentifiers_, identifier) > 0) save();
}

void AppSwitcherModel::save() {
  // The file holds other settings too; they stay.
  auto preferences = dictionaryWithContentsOfFile(preferencesPath).value_or(PropertyListDictionary());
  preferences[recentsKey] =
      PropertyListArray(recentDisplayIdentifiers_.begin(), recentDisplayIdentifiers_.end());
  if (writeDictionaryToFile(preferences, preferencesPath) || toldOfWriting_) return;
  toldOfWriting_ = true;
  warn_(std::string(preferencesPath) + ": cannot be written; the recent applications will not be remembered");
}

}  // namespace host
