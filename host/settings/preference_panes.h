#pragma once

#include <set>
#include <string>
#include <vector>

#include "host/json_text.h"
#include "host/settings/preference_pane.h"
#include "host/spring_board.h"

namespace host {

/// The settings that libraries brought panes for: shown and changed as on the device, through the property
/// lists in /var/mobile/Library/Preferences and the notifications that announce a change. What a key means is
/// its library's business alone.
class PreferencePanes {
 public:
  /// Reads the panes, and the settings that the device has started with. The applications are those that may
  /// be chosen.
  explicit PreferencePanes(const std::vector<AppListing>& applications);

  /// A line for each pane that is not usable and has been left out.
  const std::vector<std::string>& warnings() const { return warnings_; }

  /// The names of all notifications that a change may post.
  std::set<std::string> notifications() const;

  /// What a page gets as "settings" (docs/web.md), with the values that the files hold at the moment.
  Json describe() const;

  /// Writes a setting and posts its notification; null removes the key of an application's choice. The file
  /// keeps its other keys; where there is none that can be read, it starts from the panes' defaults.
  /// Throws BadSetting, and has changed nothing, for what no pane could do; Failure, naming the file, where
  /// it cannot be written.
  void set(const std::string& domain, const std::string& key, const Json& value);

 private:
  std::vector<const PreferenceItem*> items() const;  // Owned by panes_.
  const PreferenceItem* itemOf(const std::string& domain, const std::string& key) const;
  PropertyListDictionary defaultsOf(const std::string& domain) const;
  bool isInstalled(const std::string& bundle) const;

  std::vector<std::string> bundles_;
  std::vector<std::string> warnings_;
  std::vector<PreferencePane> panes_;
  Json atStart_;  // As described when the device started.
};

}  // namespace host
