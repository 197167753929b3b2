#pragma once

#include <functional>
#include <string>

#include "host/shared_instance.h"
#include "platform/foundation/ns_array.h"
#include "platform/springboard/sb_app_switcher_model.h"

namespace host {

/// The recently used applications, most recent first, each once; kept on disk across runs.
class AppSwitcherModel : public SBAppSwitcherModel {
 public:
  using Warn = std::function<void(std::string)>;

  /// Reads the list from disk, without the identifiers that `isInstalled` denies. What cannot be read, now,
  /// or written, later, goes to `warn`: a line each, and the second once only.
  AppSwitcherModel(const std::function<bool(const std::string&)>& isInstalled, Warn warn);

  /// Gives SBAppSwitcherModel its behaviour.
  static void registerMethods();
  /// The process's model; null while there is none.
  static AppSwitcherModel* shared() { return SharedInstance<AppSwitcherModel>::current(); }

  const NSStringArray& identifiers() const { return recentDisplayIdentifiers_; }
  /// The application has come to the front: it enters, or moves to, the head of the list.
  void moveToFront(const std::string& identifier);

 private:
  void drop(const std::string& identifier);
  void save();

  NSStringArray recentDisplayIdentifiers_;
  Warn warn_;
  bool toldOfWriting_ = false;
  SharedInstance<AppSwitcherModel> shared_{*this};
};

}  // namespace host
