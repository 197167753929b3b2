#include "platform/foundation/ns_notification_center.h"

#include <algorithm>
#include <iterator>

NSNotificationCenter& NSNotificationCenter::defaultCenter() {
  static auto& center =
      *new NSNotificationCenter();  // Observers may hold anything, so it outlives everything.
  return center;
}

void NSNotificationCenter::addObserver(std::string_view name, Observer observer) {
  registrations_.push_back({std::string(name), std::move(observer)});
}

void NSNotificationCenter::post(std::string_view name, int number) {
  // Whoever registers during the delivery hears of the next posting.
  std::vector<Registration> reached;
  std::copy_if(registrations_.begin(), registrations_.end(), std::back_inserter(reached),
               [name](const Registration& registration) { return registration.name == name; });
  for (const Registration& registration : reached) registration.observer(number);
}
