#include "platform/foundation/darwin_notification_center.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "platform/foundation/run_loop.h"
#include "platform/foundation/trace.h"

void CFDarwinNotificationCenter::addObserver(void* observer, CFNotificationCallback callback,
                                             std::string_view name,
                                             CFNotificationSuspensionBehavior behavior) {
  const bool known =
      std::any_of(registrations_.begin(), registrations_.end(), [&](const Registration& registration) {
        return registration.observer == observer && registration.callback == callback &&
               registration.name == name;
      });
  if (!known) registrations_.push_back({observer, callback, std::string(name), behavior});
}

void CFDarwinNotificationCenter::removeEveryObserver(void* observer) {
  std::erase_if(registrations_, [=](const Registration& each) { return each.observer == observer; });
}

void CFDarwinNotificationCenter::post(std::string_view name) {
  RunLoop& loop = RunLoop::main();
  loop.schedule(loop.now(), [this, name = std::string(name)] { deliver(name); });
}

void CFDarwinNotificationCenter::deliver(const std::string& name) {
  // Whoever registers during the delivery hears of the next posting.
  std::vector<Registration> reached;
  std::copy_if(registrations_.begin(), registrations_.end(), std::back_inserter(reached),
               [&name](const Registration& registration) { return registration.name == name; });
  for (const Registration& registration : reached) registration.callback(registration.observer, name);
  trace("notification", {{"name", name}, {"delivered", static_cast<std::int64_t>(reached.size())}});
}

CFDarwinNotificationCenter& CFNotificationCenterGetDarwinNotifyCenter() {
  static CFDarwinNotificationCenter center;
  return center;
}

void CFNotificationCenterAddObserver(CFDarwinNotificationCenter& center, void* observer,
                                     CFNotificationCallback callback, std::string_view name,
                                     CFNotificationSuspensionBehavior behavior) {
  center.addObserver(observer, callback, name, behavior);
}

void CFNotificationCenterRemoveEveryObserver(CFDarwinNotificationCenter& center, void* observer) {
  center.removeEveryObserver(observer);
}

void CFNotificationCenterPostNotification(CFDarwinNotificationCenter& center, std::string_view name) {
  center.post(name);
}
