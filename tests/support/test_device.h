#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/spring_board.h"
#include "platform/foundation/property_list.h"

namespace vistrel::test {

/// How a test device differs from the usual one: an iPhone 4 with five small applications and Activator.
struct DeviceSetup {
  std::string model = "iphone-4";
  PropertyListDictionary preferences = {};     ///< Keys of the preferences file; none at all means no file.
  std::vector<std::string> disabledApps = {};  ///< Bundle identifiers in the apps file.
  bool activator = true;
  bool locked = false;
  bool loadsLibrary = true;
  std::vector<std::string> recents =
      {};  ///< Bundle identifiers that SpringBoard remembers, most recent first.
};

/// A whole device in a private root folder: SpringBoard with the product loaded, and a finger. Time is
/// virtual and moves by pump alone. One per process.
class TestDevice {
 public:
  explicit TestDevice(DeviceSetup setup = {});
  ~TestDevice();

  host::SpringBoard& springBoard() { return *springBoard_; }
  const std::filesystem::path& root() const { return root_; }
  /// Where a device path lies on this machine.
  std::filesystem::path pathOf(std::string_view devicePath) const;

  /// Lets time pass.
  void pump(double seconds);
  /// Lets time pass until the device has come to rest.
  void settle();
  /// Opens an application through its icon ("com.example.one" to "five") and waits for it.
  void launch(const std::string& bundle);
  void home();

  // The finger; screen points.
  void down(float x, float y);
  void move(float x, float y);
  void up();
  void tap(float x, float y);
  /// Drags the finger that is down to (x, y) in `seconds`, in twenty moves.
  void drag(float x, float y, double seconds = 0.2);
  /// Swipes in from the edge at which the switcher rests and stays down, over x.
  void swipeIn(float y, float toX);

  /// An Activator event; true when a listener handled it.
  bool receive();
  bool abort();
  bool deactivate();

  /// Writes keys over the preferences file's and posts the change notification.
  void changePreferences(const PropertyListDictionary& changes);
  void deletePreferences();
  PropertyListDictionary readPreferences() const;
  void postChange();

 private:
  void writePreferences(const PropertyListDictionary& preferences) const;

  std::filesystem::path root_;
  std::unique_ptr<host::SpringBoard> springBoard_;
};

/// "com.example.one" and so on, the bundles of a test device.
extern const std::vector<std::string> testBundles;

/// The keyed archive of a colour, as a preferences value.
PropertyList archived(float red, float green, float blue);

}  // namespace vistrel::test
