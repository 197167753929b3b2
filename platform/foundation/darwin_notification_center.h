#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Notifications between processes: a name and nothing else, delivered on the main run loop.
using CFNotificationCallback = void (*)(void* observer, const std::string& name);

enum class CFNotificationSuspensionBehavior { Drop = 1, Coalesce = 2, Hold = 3, DeliverImmediately = 4 };

class CFDarwinNotificationCenter {
 public:
  /// Registering the same observer, callback and name again changes nothing: each posting reaches it once.
  void addObserver(void* observer, CFNotificationCallback callback, std::string_view name,
                   CFNotificationSuspensionBehavior behavior);

  /// Ends all registrations of an observer.
  void removeEveryObserver(void* observer);

  /// Delivers at the run loop's next turn, then traces "notification" {name, delivered}, where delivered is
  /// the number of callbacks reached.
  void post(std::string_view name);

 private:
  struct Registration {
    void* observer;  // Passed through, never dereferenced.
    CFNotificationCallback callback;
    std::string name;
    CFNotificationSuspensionBehavior behavior;
  };
  void deliver(const std::string& name);

  std::vector<Registration> registrations_;
};

CFDarwinNotificationCenter& CFNotificationCenterGetDarwinNotifyCenter();
void CFNotificationCenterAddObserver(CFDarwinNotificationCenter& center, void* observer,
                                     CFNotificationCallback callback, std::string_view name,
                                     CFNotificationSuspensionBehavior behavior);
void CFNotificationCenterRemoveEveryObserver(CFDarwinNotificationCenter& center, void* observer);
void CFNotificationCenterPostNotification(CFDarwinNotificationCenter& center, std::string_view name);
