#pragma once

#include <memory>
#include <string>

#include "platform/runtime/message.h"
#include "platform/springboard/sb_application.h"

/// The catalogue of installed applications. Class method "sharedInstance", `SBApplicationController*()`.
class SBApplicationController : public NSObject {
  OBJC_CLASS(SBApplicationController, NSObject)
 public:
  /// The application of a bundle identifier, or null; owned by the catalogue.
  SBApplication* applicationWithDisplayIdentifier(const std::string& identifier) {
    return send<SBApplication*>(*this, "applicationWithDisplayIdentifier:", identifier);
  }
};
