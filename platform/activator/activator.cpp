#include "platform/activator/activator.h"

LAActivator& LAActivator::sharedInstance() {
  // Never destroyed: its listeners live in libraries that are never unloaded.
  static auto& instance = *new std::shared_ptr<LAActivator>(std::make_shared<LAActivator>());
  return *instance;
}

void LAActivator::registerListener(std::shared_ptr<LAListener> listener, const std::string& name) {
  listeners_.insert_or_assign(name, std::move(listener));
}

void LAActivator::sendEvent(LAEvent& event) {
  const auto listeners = listeners_;  // A listener may register another one.
  for (const auto& [name, listener] : listeners) {
    listener->receiveEvent(*this, event);
    if (!event.handled()) continue;
    for (const auto& [otherName, other] : listeners) {
      if (other != listener) other->otherListenerDidHandleEvent(*this, event);
    }
    return;
  }
}

void LAActivator::sendAbort(LAEvent& event) {
  const auto listeners = listeners_;
  for (const auto& [name, listener] : listeners) listener->abortEvent(*this, event);
}

void LAActivator::sendDeactivateEvent(LAEvent& event) {
  const auto listeners = listeners_;
  for (const auto& [name, listener] : listeners) listener->receiveDeactivateEvent(*this, event);
}
