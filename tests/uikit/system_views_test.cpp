#include "platform/foundation/trace.h"
#include "platform/uikit/ui_alert_view.h"
#include "platform/uikit/ui_kit.h"
#include "platform/uikit/ui_label.h"
#include "tests/uikit/views.h"

namespace {

class SystemViews : public testing::Test {
 protected:
  SystemViews() {
    registerUIKitClasses();
    use(screenSize, 1);
  }
  ~SystemViews() override { setTraceSink({}); }
  static void use(CGSize size, CGFloat scale) { setDisplay(std::make_shared<WindowDisplay>(size, scale)); }
};

TEST_F(SystemViews, AnAlertIsCentredModalAndDismissedByATap) {
  int alerts = 0;
  setTraceSink([&](std::string_view event, const TraceFields&) { alerts += event == "alert"; });
  TouchDispatcher touches;
  auto below = visibleWindow();
  for (CGSize size : {screenSize, CGSize{768, 1024}}) {
    use(size, 1);
    std::weak_ptr<UIAlertView> alert = [] {
      auto made = std::make_shared<UIAlertView>("Title", "A message that goes over more than just one line.",
                                                nullptr, "Cancel", std::vector<std::string>{"Other"});
      made->show();
      made->show();  // It is there already.
      return made;
    }();
    ASSERT_FALSE(alert.expired());  // The screen keeps it.
    ASSERT_EQ(UIAlertView::visibleAlerts().size(), 1u);
    const UIAlertView& shown = *alert.lock();
    EXPECT_NEAR(shown.center().x, size.width / 2, 0.5);
    EXPECT_NEAR(shown.center().y, size.height / 2, 0.5);
    EXPECT_TRUE(shown.window()->isKeyWindow());
    EXPECT_EQ(UIWindow::hitTestScreen({5, 5}, nullptr)->window(), shown.window());

    touches.down(0, {5, 5}, 0);  // Beside it.
    touches.up(0, {5, 5}, 0);
    EXPECT_TRUE(shown.isVisible());
    const UIView& button = *shown.subviews().back();
    const CGPoint middle = button.convertPointToScreen({10, 10});
    touches.down(0, middle, 0);
    EXPECT_TRUE(shown.isVisible());
    touches.up(0, middle, 0);
    EXPECT_TRUE(UIAlertView::visibleAlerts().empty());
    EXPECT_TRUE(alert.expired());
    EXPECT_EQ(UIWindow::hitTestScreen({5, 5}, nullptr), below.get());
  }
  EXPECT_EQ(alerts, 2);
}

}  // namespace
