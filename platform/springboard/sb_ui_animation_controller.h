#pragma once

#include "platform/runtime/message.h"
#include "platform/springboard/sb_application.h"

/// One transition between applications or between an application and the home screen.
class SBUIAnimationController : public NSObject {
  OBJC_CLASS(SBUIAnimationController, NSObject)
 public:
  /// Either application may be null: the home screen. The controller, or null when it could not be made.
  SBUIAnimationController* initWithActivatingApp(SBApplication* activatingApp,
                                                 SBApplication* deactivatingApp) {
    return send<SBUIAnimationController*>(*this, "initWithActivatingApp:deactivatingApp:", activatingApp,
                                          deactivatingApp);
  }
};
