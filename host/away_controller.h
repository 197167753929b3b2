#pragma once

#include <memory>
#include <string>

#include "host/lock_screen_view.h"
#include "host/shared_instance.h"
#include "host/status_bar.h"
#include "host/ui_controller.h"
#include "platform/springboard/sb_away_controller.h"

namespace host {

/// What the lock screen is seen in, above applications and below the status bar.
class AwayWindow : public UIWindow {
  OBJC_CLASS(SBAwayWindow, UIWindow)
 public:
  static constexpr CGFloat level = 900;
  using UIWindow::UIWindow;
};

/// Locking and unlocking.
class AwayController : public SBAwayController {
 public:
  /// Both outlive the controller.
  AwayController(const DeviceModel& model, UIController& uiController, StatusBar& statusBar);

  /// Gives SBAwayController and GSEventLockDevice their behaviour.
  static void registerMethods();
  /// The process's controller; null while there is none.
  static AwayController* shared() { return SharedInstance<AwayController>::current(); }

  /// Builds a fresh lock-screen view and puts it into the window. Before the first lock it waits there
  /// unseen.
  void buildView();
  /// For a start with the lock screen up, which is no event of its own.
  void startLocked();

  bool locked() const { return locked_; }
  /// `by` is what the log calls the cause. A locked device stays as it is.
  void lock(const std::string& by);
  void unlock();  ///< Of an unlocked device: nothing happens.
  /// The Home button on the lock screen.
  void pressHome();

  bool busy() const { return isSliding_; }
  void settle();  ///< Ends the lock screen's way off the screen at once.

  void updateTime();  ///< On the lock screen and in the status bar.

 private:
  void showView();

  DeviceModel model_;
  UIController& uiController_;
  StatusBar& statusBar_;
  std::shared_ptr<AwayWindow> window_;
  std::shared_ptr<LockScreenView> view_;  // Null while there is none, or where it could not be made.
  bool locked_ = false;
  bool isSliding_ = false;
  SharedInstance<AwayController> shared_{*this};
};

}  // namespace host
