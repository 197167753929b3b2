#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/device_model.h"
#include "platform/foundation/ns_array.h"
#include "platform/uikit/ui_image.h"
#include "platform/uikit/ui_orientation.h"

namespace host {

struct BootOptions {
  std::filesystem::path root;  ///< The folder that is the device's "/".
  DeviceModel model;
  bool loadTweaks = true;
  bool startLocked = false;
  /// Run where add-on libraries are loaded: a library that is linked in, rather than found on the root,
  /// starts here.
  std::function<void()> alsoLoad;
};

/// An installed application, as a listing shows it.
struct AppListing {
  std::string bundle;
  std::string name;
  bool running = false;
};

/// The home-screen process: boots on a device root, and does what a person's buttons and fingers ask of it.
///
/// One per process: it stands behind SpringBoard's classes. Requests start at once; what animates goes on as
/// the run loop's time passes. Requests that cannot be met throw Failure.
class SpringBoard {
 public:
  /// Boots: file system, screen, SpringBoard's classes, add-on libraries, status bar, home screen, lock
  /// screen. Throws Failure for a root that is no device root. Libraries and bundles that are not usable are
  /// reported, one line each, through `warnings`, and left out.
  explicit SpringBoard(const BootOptions& options);
  ~SpringBoard();

  /// What boot had to report and, later, what else could not be kept; a line each, in order.
  const std::vector<std::string>& warnings() const;
  /// Tells those that there are at once, and each further one as it comes.
  void tellWarnings(std::function<void(const std::string&)> tell);

  /// Opens an application through its icon: first back to the home screen, then to the icon's page, then a
  /// tap. Fails on a locked device and for an unknown bundle.
  void launch(const std::string& bundle);
  /// Ends a running application, going home first where it is in front, and takes it off the recents.
  void terminate(const std::string& bundle);
  void pressHome();
  void pressLock();
  void unlock();  ///< Of an unlocked device: nothing happens.
  void rotate(UIDeviceOrientation orientation);
  /// The keyboard of the front application; fails where none is in front or the device is locked.
  void showKeyboard();
  void hideKeyboard();

  /// True while a request is still under way: an animation between screens, or a launch on its way home.
  bool busy() const;

  const DeviceModel& model() const;
  bool locked() const;
  std::optional<std::string> frontmost() const;  ///< Bundle identifier; nothing on the home screen.
  const NSStringArray& recents() const;          ///< Bundle identifiers, most recent first.
  std::vector<AppListing> applications() const;  ///< In order of their bundle identifiers.
  /// Its picture on the home screen; null for an unknown bundle.
  std::shared_ptr<UIImage> icon(const std::string& bundle) const;

  /// The clocks on screen show the time of the last request; this has them show the time that it is.
  void updateClocks();

 private:
  class State;
  std::unique_ptr<State> state_;
};

}  // namespace host
