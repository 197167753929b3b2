#pragma once

#include <functional>
#include <string>

#include "host/process_wide.h"
#include "platform/foundation/ns_array.h"
#include "platform/springboard/sb_app_switcher_model.h"

namespace host {

/// The recently used applications, most recent first, each once; kept on disk across runs.
class AppSwitcherModel : public SBAppSwitcherModel, public ProcessWide<AppSwitcherModel> {
 public:
  /// Reads the list from disk, without the identifiers that `isInstalled` denies.
  explicit AppSwitcherModel(const std::function<bool(const std::string&)>& isInstalled);

  /// Gives SBAppSwitcherModel its behaviour.
  static void registerMethods();

  const NSStringArray& identifiers() const { return recentDisplayIdentifiers_; }
  /// The application has come to the front: it enters, or moves to, the head of the list.
  void moveToFront(const std::string& identifier);

 private:
  void drop(const std::string& identifier);
  void save() const;

  NSStringArray recentDisplayIdentifiers_;
};

}  // namespace host
