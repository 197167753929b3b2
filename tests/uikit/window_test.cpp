#include <algorithm>

#include "platform/foundation/trace.h"
#include "tests/uikit/views.h"

namespace {

using Windows = std::vector<UIWindow*>;

/// The visible ones, back to front.
Windows shown() {
  Windows windows = UIWindow::allWindows();
  std::erase_if(windows, [](const UIWindow* window) { return window->hidden(); });
  return windows;
}

TEST(Windows, LieByLevelThenByWhenTheyBecameVisible) {
  auto first = std::make_shared<UIWindow>(CGRectZero), second = std::make_shared<UIWindow>(CGRectZero);
  auto high = std::make_shared<UIWindow>(CGRectZero);
  UIWindow *a = first.get(), *b = second.get(), *h = high.get();
  std::vector<double> levels;
  setTraceSink([&](std::string_view, const TraceFields& fields) {
    EXPECT_EQ(fields[0].second, TraceValue(std::string("UIWindow")));
    levels.push_back(std::get<double>(fields[1].second));
  });
  EXPECT_EQ(shown(), Windows());

  high->setWindowLevel(5);
  high->setHidden(false);
  second->setHidden(false);
  first->setHidden(false);
  EXPECT_EQ(shown(), (Windows{b, a, h}));
  second->setHidden(false);  // It is visible: nothing happens.
  EXPECT_EQ(shown(), (Windows{b, a, h}));
  second->makeKeyAndVisible();
  EXPECT_EQ(shown(), (Windows{a, b, h}));
  second->setWindowLevel(5);
  EXPECT_EQ(shown(), (Windows{a, h, b}));
  high->setWindowLevel(5);  // It has that level: nothing happens.
  EXPECT_EQ(shown(), (Windows{a, h, b}));
  second->setWindowLevel(-1);
  EXPECT_EQ(shown(), (Windows{b, a, h}));

  first->makeKeyAndVisible();
  EXPECT_FALSE(second->isKeyWindow());
  first->setHidden(true);  // The window that was key before is key again.
  EXPECT_TRUE(second->isKeyWindow());
  second.reset();
  EXPECT_EQ(shown(), Windows{h});
  setTraceSink({});
  EXPECT_EQ(levels, (std::vector<double>{5, 5, -1}));
}

TEST(Windows, TouchesFallThroughToTheWindowBelow) {
  /// Lets touches on its empty area through, and lowers itself whenever it is asked.
  class Overlay : public UIWindow {
   public:
    using UIWindow::UIWindow;
    UIView* hitTest(CGPoint point, UIEvent* event) override {
      setWindowLevel(windowLevel() - 1);
      UIView* hit = UIWindow::hitTest(point, event);
      return hit == this ? nullptr : hit;
    }
  };
  auto below = visibleWindow();
  auto hidden = std::make_shared<Overlay>(below->frame());
  hidden->setWindowLevel(3);
  auto overlay = std::make_shared<Overlay>(CGRect{{100, 0}, screenSize});
  auto icon = addView(*overlay, {{0, 0}, {50, 50}});
  overlay->setWindowLevel(1);
  overlay->setHidden(false);
  EXPECT_EQ(UIWindow::hitTestScreen({110, 10}, nullptr), icon.get());
  overlay->setWindowLevel(1);
  EXPECT_EQ(UIWindow::hitTestScreen({200, 10}, nullptr), below.get());
  EXPECT_EQ(UIWindow::hitTestScreen({50, 10}, nullptr), below.get());
  EXPECT_EQ(UIWindow::hitTestScreen({-1, 10}, nullptr), nullptr);
  EXPECT_EQ(hidden->windowLevel(), 3);  // It is not even asked.
}

}  // namespace
