#include "platform/foundation/ns_notification_center.h"
#include "platform/foundation/trace.h"
#include "platform/runtime/message.h"
#include "platform/springboard/sb_linen_view.h"
#include "platform/uikit/ui_alert_view.h"
#include "platform/uikit/ui_application.h"
#include "platform/uikit/ui_button.h"
#include "platform/uikit/ui_device.h"
#include "platform/uikit/ui_keyboard.h"
#include "platform/uikit/ui_kit.h"
#include "platform/uikit/ui_label.h"
#include "platform/uikit/ui_screen.h"
#include "platform/uikit/ui_status_bar.h"
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

TEST_F(SystemViews, TheKeyboardIsKnownToTheRuntimeByItsWindow) {
  Class* keyboard = objc_getClass("UIKeyboard");
  auto* host = sendToClass<UIPeripheralHost*>(objc_getClass("UIPeripheralHost"), "sharedInstance");
  ASSERT_TRUE(host);
  EXPECT_FALSE(sendToClass<bool>(keyboard, "isOnScreen"));
  host->showKeyboard();
  UIWindow* window = host->automaticKeyboard()->targetWindow();
  host->showKeyboard();
  EXPECT_TRUE(sendToClass<bool>(keyboard, "isOnScreen"));
  EXPECT_EQ(host->automaticKeyboard()->targetWindow(), window);
  EXPECT_EQ(window->windowLevel(), 10);
  EXPECT_EQ(window->frame(), (CGRect{{0, 264}, {320, 216}}));
  EXPECT_FALSE(window->hidden());
  host->hideKeyboard();
  host->hideKeyboard();
  EXPECT_FALSE(sendToClass<bool>(keyboard, "isOnScreen"));
}

TEST_F(SystemViews, TheStatusBarIsBuiltThroughReplaceableMethods) {
  static UIStatusBar* (*previous)(UIStatusBar&, CGRect);
  Method* method = objc_getClass("UIStatusBar")->instanceMethod("initWithFrame:");
  previous = method->exchange(+[](UIStatusBar& self, CGRect frame) {
    frame.size.width /= 2;
    return previous(self, frame);
  });
  ASSERT_TRUE(previous);
  registerUIKitClasses();  // Leaves replaced methods alone.
  auto bar = std::make_shared<UIStatusBar>();
  EXPECT_EQ(bar->initWithFrame({{0, 0}, {320, 20}}), bar.get());
  EXPECT_EQ(bar->frame().size.width, 160);

  UIWindow* window = bar->statusBarWindow();
  EXPECT_EQ(window, std::make_shared<UIStatusBar>()->statusBarWindow());
  EXPECT_EQ(window->windowLevel(), UIWindowLevelStatusBar);
  EXPECT_FALSE(window->hidden());
  EXPECT_EQ(UIWindow::hitTestScreen({10, 10}, nullptr), nullptr);
}

TEST_F(SystemViews, HostsSpeakThroughSharedObjects) {
  use({320, 568}, 2);
  EXPECT_TRUE(UIScreen::mainScreen().respondsToSelector("scale"));
  EXPECT_EQ(send<CGFloat>(UIScreen::mainScreen(), "scale"), 2);
  EXPECT_EQ(UIScreen::mainScreen().bounds(), (CGRect{{0, 0}, {320, 568}}));

  std::vector<int> posted;
  auto& center = NSNotificationCenter::defaultCenter();
  center.addObserver(UIDeviceOrientationDidChangeNotification, [&](int number) { posted.push_back(number); });
  center.addObserver(UIApplicationDidChangeStatusBarOrientationNotification,
                     [&](int number) { posted.push_back(100 + number); });
  UIDevice::currentDevice().setOrientation(UIDeviceOrientation::Portrait);  // As it is.
  UIDevice::currentDevice().setOrientation(UIDeviceOrientation::FaceUp);
  UIApplication::sharedApplication().setStatusBarOrientation(UIInterfaceOrientation::LandscapeLeft);
  EXPECT_EQ(posted, (std::vector<int>{5, 101}));  // The new one, and the one before.
}

TEST_F(SystemViews, LabelsAreDrawnAgainOnlyForWhatShows) {
  UILabel label({{0, 0}, {80, 20}});
  label.setText("Clock");
  const CGImageRef drawn = label.layer().displayIfNeeded(1);
  ASSERT_TRUE(drawn);
  auto drawnAgain = [&] { return label.layer().displayIfNeeded(1) != drawn; };
  label.setFrame({{100, 50}, {80, 20}});
  label.setTransform(CGAffineTransformMakeScale(2, 2));
  label.setText("Clock");
  label.setTextColor(UIColor::blackColor());
  EXPECT_FALSE(drawnAgain());
  label.setTextAlignment(UITextAlignment::Right);
  EXPECT_TRUE(drawnAgain());
  label.setText("");
  EXPECT_EQ(label.layer().displayIfNeeded(1), nullptr);
}

TEST_F(SystemViews, LinenKeepsItsClothWhileItCollapses) {
  SBLinenView linen({{0, 0}, {320, 160}}), again({{0, 50}, {320, 160}});
  const CGImageRef cloth = linen.layer().contents();
  ASSERT_TRUE(cloth);
  EXPECT_EQ(CGDataProviderCopyData(cloth), CGDataProviderCopyData(again.layer().contents()));
  EXPECT_LT(cloth->row(1)[400], cloth->row(80)[400]);  // In the shadow of its edge.
  linen.setFrame({{0, 80}, {320, 0}});
  EXPECT_EQ(linen.layer().contents(), cloth);
}

}  // namespace
