#include "host/app_catalogue.h"

#include "host/failure.h"
#include "host/home_layout.h"
#include "platform/foundation/file_manager.h"
#include "platform/springboard/sb_application_icon.h"

namespace host {
namespace {

constexpr const char* applicationsFolder = "/Applications";
constexpr int mostApplications = 500;

}  // namespace

AppCatalogue::AppCatalogue(const DeviceModel& model, std::vector<std::string>& warnings) {
  const CGFloat iconPoints = homeLayout(model).iconSize;
  int count = 0;
  for (const std::string& name : NSFileManager::defaultManager().contentsOfDirectory(applicationsFolder)) {
    if (!name.ends_with(".app")) continue;
    if (++count > mostApplications) {
      warnings.push_back(std::string(applicationsFolder) + ": more than " + std::to_string(mostApplications) +
                         " applications; from " + name + " on they are left out");
      break;
    }
    const std::string folder = std::string(applicationsFolder) + "/" + name;
    try {
      ApplicationBundle bundle(folder, model);
      const std::string identifier = bundle.identifier();
      if (applications_.contains(identifier)) throw Failure("another application is called " + identifier);
      applications_.emplace(identifier, std::make_shared<Application>(std::move(bundle), iconPoints));
    } catch (const Failure& failure) {
      warnings.push_back(folder + "/Info.plist: " + failure.what());
    }
  }
}

void AppCatalogue::registerMethods() {
  Class& cls = SBApplicationController::objcClass();
  cls.addClassMethod(
      "sharedInstance", +[]() -> SBApplicationController* { return shared(); });
  cls.addMethod(
      "applicationWithDisplayIdentifier:",
      +[](SBApplicationController& self, std::string identifier) -> SBApplication* {
        return static_cast<AppCatalogue&>(self).find(identifier);
      });
  // There is one picture an application, whatever variant is asked for.
  SBApplicationIcon::objcClass().addMethod(
      "getIconImage:", +[](SBApplicationIcon& self, int /*variant*/) -> std::shared_ptr<UIImage> {
        auto* catalogue = shared();
        Application* application = catalogue ? catalogue->find(self.application()) : nullptr;
        return application ? application->icon() : nullptr;
      });
}

std::vector<Application*> AppCatalogue::applications() const {
  std::vector<Application*> result;
  for (const auto& [identifier, application] : applications_) result.push_back(application.get());
  return result;
}

Application* AppCatalogue::find(const std::string& identifier) const {
  auto found = applications_.find(identifier);
  return found == applications_.end() ? nullptr : found->second.get();
}

Application* AppCatalogue::find(const SBApplication* application) const {
  for (const auto& [identifier, ours] : applications_)
    if (ours.get() == application) return ours.get();
  return nullptr;
}

}  // namespace host
