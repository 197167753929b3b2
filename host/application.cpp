#include "host/application.h"

#include "host/ui_controller.h"

namespace host {
namespace {

/// Every application of this process comes from the catalogue and is one of ours.
Application& ours(SBApplication& application) { return static_cast<Application&>(application); }

std::string text(ActivationState state) {
  switch (state) {
    case ActivationState::Inactive:
      return "inactive";
    case ActivationState::Activating:
      return "activating";
    case ActivationState::Animated:
      return "animated";
    case ActivationState::Active:
      return "active";
  }
  return "";
}

}  // namespace

void Application::registerMethods() {
  Class& cls = SBApplication::objcClass();
  cls.addMethod(
      "displayIdentifier", +[](SBApplication& self) { return ours(self).identifier(); });
  cls.addMethod(
      "displayName", +[](SBApplication& self) { return ours(self).bundle().name(); });
  cls.addMethod(
      "activate", +[](SBApplication& self) {
        if (auto* controller = UIController::shared()) controller->activate(ours(self));
      });
  cls.addMethod(
      "_activationStateToString", +[](SBApplication& self) { return text(ours(self).state()); });
  cls.addMethod(
      "didLaunch:", +[](SBApplication& self, NSObject* process) {
        ours(self).process_ = process ? process->shared_from_this() : nullptr;
      });
  // Nothing here asks for it; it is there for those who stand in its place.
  cls.addMethod(
      "_setHasBeenLaunched", +[](SBApplication&) {});
  cls.addMethod(
      "didAnimateActivation", +[](SBApplication& self) { ours(self).setState(ActivationState::Animated); });
  cls.addMethod(
      "didActivate", +[](SBApplication& self) { ours(self).setState(ActivationState::Active); });
}

void Application::processEnded() {
  process_ = nullptr;
  state_ = ActivationState::Inactive;
  portraitScreen_ = landscapeScreen_ = nullptr;
}

const std::shared_ptr<UIImage>& Application::icon() {
  if (!icon_) icon_ = bundle_.loadIcon(iconPoints_);
  return icon_;
}

std::shared_ptr<UIImage> Application::screen(UIInterfaceOrientation orientation) {
  auto& kept = UIInterfaceOrientationIsLandscape(orientation) ? landscapeScreen_ : portraitScreen_;
  if (!kept) kept = bundle_.loadLaunchPicture(orientation);
  return kept;
}

}  // namespace host
