#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/application.h"
#include "host/device_model.h"
#include "host/shared_instance.h"
#include "platform/springboard/sb_application_controller.h"

namespace host {

/// The installed applications, read from /Applications once.
class AppCatalogue : public SBApplicationController {
 public:
  /// A bundle that is not usable is left out and leaves one line, its file and the cause, in `warnings`.
  AppCatalogue(const DeviceModel& model, std::vector<std::string>& warnings);

  /// Gives SBApplicationController and SBApplicationIcon's picture their behaviour.
  static void registerMethods();
  /// The process's catalogue; null while there is none.
  static AppCatalogue* shared() { return SharedInstance<AppCatalogue>::current(); }

  /// In order of their identifiers. Owned by the catalogue.
  std::vector<Application*> applications() const;
  /// The application of that bundle identifier, or null.
  Application* find(const std::string& identifier) const;
  /// The application, as ours, where it is one of the catalogue; otherwise, and for null, null.
  Application* find(const SBApplication* application) const;

 private:
  std::map<std::string, std::shared_ptr<Application>> applications_;
  SharedInstance<AppCatalogue> shared_{*this};
};

}  // namespace host
