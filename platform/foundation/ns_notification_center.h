#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// Notifications inside the process, delivered at once to whoever observes the name.
class NSNotificationCenter {
 public:
  /// `number` is the one piece of user information that our notifications carry (an orientation).
  using Observer = std::function<void(int number)>;

  static NSNotificationCenter& defaultCenter();

  void addObserver(std::string_view name, Observer observer);
  void post(std::string_view name, int number = 0);

 private:
  struct Registration {
    std::string name;
    Observer observer;
  };
  std::vector<Registration> registrations_;
};
