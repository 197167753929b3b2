#pragma once

#include <csetjmp>

/// Where a C library's error handler, which may not return, jumps to instead. Internal.
class ErrorJump {
 public:
  /// Runs `step`; false when it ended in fail(). A jump runs no destructors, so `step` and all that it calls
  /// must keep to types without any; whatever needs one belongs to the caller of guard().
  template <class Step>
  bool guard(Step step) {
    if (setjmp(target_) != 0) return false;
    step();
    return true;
  }

  /// Ends the step that guard() is running.
  [[noreturn]] void fail() { std::longjmp(target_, 1); }

 private:
  std::jmp_buf target_;
};
