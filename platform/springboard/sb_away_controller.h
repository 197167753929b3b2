#pragma once

#include "platform/runtime/message.h"

/// Locking and unlocking. Class method "sharedAwayController", `SBAwayController*()`.
class SBAwayController : public NSObject {
  OBJC_CLASS(SBAwayController, NSObject)
 public:
  bool isLocked() { return send<bool>(*this, "isLocked"); }
  void undimScreen() { send<void>(*this, "undimScreen"); }
};
