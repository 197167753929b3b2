#pragma once

#include <memory>

#include "host/application.h"
#include "platform/uikit/ui_image_view.h"
#include "platform/uikit/ui_window.h"

namespace host {

/// An application's screen: its picture, upright for whoever holds the device.
class AppScreen : public UIImageView {
  OBJC_CLASS(SBAppScreenView, UIImageView)
 public:
  /// `portrait` is the device's screen, which it fills.
  AppScreen(Application& application, CGSize portrait, UIInterfaceOrientation orientation);

  Application& application() const { return application_; }
  UIInterfaceOrientation orientation() const { return orientation_; }
  /// The transform under which it stands upright, full size.
  CGAffineTransform upright() const;
  void turnTo(UIInterfaceOrientation orientation);

 private:
  Application& application_;  // Owned by the catalogue.
  CGSize portrait_;
  UIInterfaceOrientation orientation_;
};

/// What the screens of applications are seen in, above the home screen.
class AppWindow : public UIWindow {
  OBJC_CLASS(SBAppWindow, UIWindow)
 public:
  static constexpr CGFloat level = 1;
  using UIWindow::UIWindow;
};

}  // namespace host
