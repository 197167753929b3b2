#include "platform/springboard/gs_event.h"

#include <utility>

namespace {

std::function<void()>& lockDeviceHandler() {
  static std::function<void()> handler;
  return handler;
}

}  // namespace

void GSEventLockDevice() {
  const auto handler = lockDeviceHandler();  // A copy: the host may take it back meanwhile.
  if (handler) handler();
}

void setLockDeviceHandler(std::function<void()> handler) { lockDeviceHandler() = std::move(handler); }
