#include "platform/uikit/ui_window.h"

#include <algorithm>

#include "platform/foundation/trace.h"
#include "platform/quartzcore/screen_changes.h"

namespace {

using Windows = std::vector<UIWindow*>;

/// Back to front. Never destroyed: windows may go as late as the process itself.
Windows& windowOrder() {
  static auto& windows = *new Windows();
  return windows;
}

/// Visible windows that have been made key, the key window last.
Windows& keyOrder() {
  static auto& windows = *new Windows();
  return windows;
}

void moveToFrontOfLevel(UIWindow& window) {
  Windows& windows = windowOrder();
  std::erase(windows, &window);
  auto nextLevel = std::find_if(windows.begin(), windows.end(), [&window](const UIWindow* other) {
    return other->windowLevel() > window.windowLevel();
  });
  windows.insert(nextLevel, &window);
  noteTreeChange();
}

}  // namespace

UIWindow::UIWindow(CGRect frame) : UIView(frame) {
  UIView::setHidden(true);
  moveToFrontOfLevel(*this);
}

UIWindow::~UIWindow() {
  std::erase(windowOrder(), this);
  std::erase(keyOrder(), this);
  noteTreeChange();
}

void UIWindow::setWindowLevel(CGFloat level) {
  if (level == level_) return;
  level_ = level;
  moveToFrontOfLevel(*this);
  trace("window-level", {{"class", isa().name()}, {"level", double(level)}});
}

void UIWindow::setHidden(bool hide) {
  if (hide == hidden()) return;
  UIView::setHidden(hide);
  if (hide) {
    std::erase(keyOrder(), this);
  } else {
    moveToFrontOfLevel(*this);
  }
}

void UIWindow::makeKeyAndVisible() {
  setHidden(false);
  moveToFrontOfLevel(*this);
  std::erase(keyOrder(), this);
  keyOrder().push_back(this);
}

bool UIWindow::isKeyWindow() const { return !keyOrder().empty() && keyOrder().back() == this; }

const std::vector<UIWindow*>& UIWindow::allWindows() { return windowOrder(); }

UIView* UIWindow::hitTestScreen(CGPoint point, UIEvent* event) {
  const Windows windows = windowOrder();  // A hit test may change levels, or end windows.
  for (auto candidate = windows.rbegin(); candidate != windows.rend(); ++candidate) {
    UIWindow* window = *candidate;
    const bool exists = std::ranges::count(windowOrder(), window) > 0;
    if (!exists || window->hidden()) continue;
    if (UIView* hit = window->hitTest(window->convertPointFromScreen(point), event)) return hit;
  }
  return nullptr;
}
