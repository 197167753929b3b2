#include "switcher/spring_board.h"

#include "platform/springboard/sb_app_switcher_model.h"
#include "platform/springboard/sb_application_controller.h"
#include "platform/springboard/sb_away_controller.h"
#include "platform/springboard/sb_ui_controller.h"

namespace vistrel {

SBApplication* applicationWithIdentifier(const std::string& identifier) {
  static Class* const applicationControllerClass = objc_getClass("SBApplicationController");
  auto* controller = sendToClass<SBApplicationController*>(applicationControllerClass, "sharedInstance");
  return controller ? controller->applicationWithDisplayIdentifier(identifier) : nullptr;
}

void openApplication(const std::string& identifier) {
  static Class* const uiControllerClass = objc_getClass("SBUIController");
  SBApplication* application = applicationWithIdentifier(identifier);
  auto* controller = sendToClass<SBUIController*>(uiControllerClass, "sharedInstance");
  if (controller) controller->activateApplicationFromSwitcher(application);
}

bool deviceIsLocked() {
  static Class* const awayControllerClass = objc_getClass("SBAwayController");
  auto* controller = sendToClass<SBAwayController*>(awayControllerClass, "sharedAwayController");
  return controller && controller->isLocked();
}

bool keyboardIsOnScreen() {
  static Class* const keyboardClass = objc_getClass("UIKeyboard");
  return sendToClass<bool>(keyboardClass, "isOnScreen");
}

NSStringArray recentDisplayIdentifiers() {
  static Class* const modelClass = objc_getClass("SBAppSwitcherModel");
  auto* model = sendToClass<SBAppSwitcherModel*>(modelClass, "sharedInstance");
  if (!model) return {};
  const InstanceVariable* variable = class_getInstanceVariable(&model->isa(), "_recentDisplayIdentifiers");
  auto* identifiers = object_getInstanceVariable<NSStringArray>(model, variable);
  return identifiers ? *identifiers : NSStringArray();
}

}  // namespace vistrel
