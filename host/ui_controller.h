#pragma once

#include <functional>
#include <memory>

#include "host/app_catalogue.h"
#include "host/app_switcher_model.h"
#include "host/home_screen.h"
#include "host/shared_instance.h"
#include "host/status_bar.h"
#include "host/transition.h"
#include "platform/springboard/sb_ui_controller.h"

namespace host {

/// Which application is in front, and how that changes.
///
/// Who is in front, the recents and the log change as a request is made; the screens then move, and the calls
/// that belong to the end of the movement are made when it ends, or at the next request, whichever comes
/// first.
class UIController : public SBUIController {
 public:
  /// All of these outlive the controller.
  UIController(const DeviceModel& model, AppCatalogue& catalogue, AppSwitcherModel& recents,
               HomeScreen& homeScreen, StatusBar& statusBar);
  ~UIController() override;

  /// Gives SBUIController, SBApplicationIcon's launch and UIApplication's quitTopApplication: their
  /// behaviour.
  static void registerMethods();
  /// The process's controller; null while there is none.
  static UIController* shared() { return SharedInstance<UIController>::current(); }

  Application* frontApplication() const { return screen_ ? &screen_->application() : nullptr; }  ///< Or null.
  bool busy() const { return transition_ || homeScreen_.isTurning(); }
  /// Ends at once whatever is under way, with all that was to follow it.
  void settle();

  /// What an application's `activate` does.
  void activate(Application& application);
  /// Goes home, turns to the application's icon and launches it there.
  void launchThroughIcon(Application& application);
  /// Nothing when the home screen is in front.
  void goHome();
  void showFirstPage();
  /// The keyboard comes up at the lower edge of the front application's interface.
  void showKeyboard();
  /// Ends the application's process, from home, and takes it off the recents.
  void terminate(Application& application);

  /// Turns the interface in front, and the application's beneath the lock screen, the way the device is held.
  void updateInterface();

 private:
  enum class Origin { Icon, Switcher };
  struct RunningTransition;

  void launchFromIcon(Application& application);
  void traceActivation(const Application& application) const;
  void setFront(std::shared_ptr<AppScreen> screen);
  /// Starts the transition from `outgoing`, null for the home screen, to what has just been put in front.
  void begin(std::shared_ptr<AppScreen> outgoing);
  void endTransition();
  UIInterfaceOrientation firstOrientation(const Application& application) const;
  /// Turns the status bar, and all who ask for its orientation, to the interface that is to be seen.
  void showInterface();

  AppCatalogue& catalogue_;
  AppSwitcherModel& recents_;
  HomeScreen& homeScreen_;
  StatusBar& statusBar_;
  CGSize screenSize_;
  std::shared_ptr<AppWindow> window_;
  std::shared_ptr<AppScreen> screen_;              // Of the front application; null at home.
  std::unique_ptr<RunningTransition> transition_;  // Null when the screens lie still.
  std::function<void()> whenHome_;                 // What follows once home has been reached.
  Origin origin_ = Origin::Switcher;               // Where the activation that is being made comes from.
  SharedInstance<UIController> shared_{*this};
};

}  // namespace host
