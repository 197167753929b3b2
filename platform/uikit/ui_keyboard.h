#pragma once

#include <memory>

#include "platform/uikit/ui_orientation.h"
#include "platform/uikit/ui_window.h"

/// The level of the keyboard's window: over applications, under the status bar.
inline constexpr CGFloat UIKeyboardWindowLevel = 10;

/// The on-screen keyboard, at the bottom of the screen in a window of its own.
class UIKeyboard : public UIView {
  OBJC_CLASS(UIKeyboard, UIView)
 public:
  explicit UIKeyboard(CGRect frame) : UIView(frame) {}

  /// Class method "isOnScreen", `bool()`.
  static bool isOnScreen();

  /// Its height in points at the lower edge of an interface that stands so on a screen of this portrait size.
  static CGFloat heightOn(CGSize screen, UIInterfaceOrientation orientation);

  /// The window that the keyboard types for lies under; the keyboard's own.
  UIWindow* targetWindow() const { return window(); }

  bool drawsContent() const override { return true; }
  void drawLayer(CGContext& context) const override;
};

/// The keeper of the keyboard.
class UIPeripheralHost : public NSObject {
  OBJC_CLASS(UIPeripheralHost, NSObject)
 public:
  static UIPeripheralHost& sharedInstance();

  /// The keyboard that comes up by itself; null while none is on screen.
  UIKeyboard* automaticKeyboard() const { return keyboard_.get(); }
  /// For the host. It comes up for a portrait interface. Showing twice, or hiding what is not shown, changes
  /// nothing.
  void showKeyboard();
  void hideKeyboard();

 private:
  std::shared_ptr<UIWindow> window_;
  std::shared_ptr<UIKeyboard> keyboard_;
};
