#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "host/app_catalogue.h"
#include "host/icon_pager.h"
#include "platform/uikit/ui_window.h"

namespace host {

class HomeWindow : public UIWindow {
  OBJC_CLASS(SBHomeWindow, UIWindow)
 public:
  using UIWindow::UIWindow;
};

/// The home screen: wallpaper, pages of icons, dock.
class HomeScreen {
 public:
  HomeScreen(const DeviceModel& model, const AppCatalogue& catalogue);
  HomeScreen(const HomeScreen&) = delete;
  HomeScreen& operator=(const HomeScreen&) = delete;

  void show();  ///< Built hidden, it stays so until SpringBoard has finished launching.

  /// The application's icon; every installed one has one.
  SBApplicationIcon& iconOf(const Application& application) const { return viewOf(application).icon(); }
  /// Where the middle of its icon is on the screen; nothing while another page is in view.
  std::optional<CGPoint> iconCenter(const Application& application) const;

  /// Turns to the page with the application's icon, then runs `completion`; at once when it is in view.
  void revealIcon(const Application& application, std::function<void()> completion);
  void showFirstPage() { pager_->showPage(0); }
  bool isTurning() const { return pager_->isTurning(); }
  void settle() { pager_->settle(); }

 private:
  IconView& viewOf(const Application& application) const { return *pager_->iconViewOf(application); }

  std::shared_ptr<HomeWindow> window_;
  std::shared_ptr<IconPager> pager_;
};

}  // namespace host
