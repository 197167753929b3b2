#include <functional>

#include "platform/runtime/message.h"
#include "platform/uikit/ui_control.h"
#include "platform/uikit/ui_image_view.h"
#include "tests/uikit/views.h"

namespace {

using Log = std::vector<std::string>;

class Touches : public testing::Test {
 protected:
  std::shared_ptr<UIWindow> window = visibleWindow();
  TouchDispatcher touches;
};

TEST_F(Touches, StayWithTheirViewWhereverItAndTheFingerGo) {
  auto view = addView<Recorder>(*window, {{0, 100}, {100, 100}});
  view->log.clear();
  touches.down(1, {30, 130}, 0);
  touches.move(1, {300, 400}, 0.1);
  window->setFrame({{200, 50}, screenSize});
  touches.move(1, {300, 400}, 0.2);
  view->removeFromSuperview();
  EXPECT_EQ(view.use_count(), 2);  // The touch keeps it to the end.
  touches.up(1, {305, 400}, 0.3);
  EXPECT_EQ(view.use_count(), 1);
  EXPECT_EQ(view->log, (Log{"began B", "moved M", "moved M", "out", "ended E"}));
  EXPECT_EQ(view->locations, (std::vector<CGPoint>{{30, 30}, {300, 300}, {100, 250}, {305, 300}}));
}

TEST_F(Touches, ClimbTheResponderChainUntilHandled) {
  auto outer = addView<Recorder>(*window, {{0, 0}, {200, 200}});
  auto inner = addView<Recorder>(*outer, {{50, 50}, {100, 100}});
  auto image = addView<UIImageView>(*inner, {{0, 0}, {100, 100}});
  outer->log.clear();
  inner->log.clear();
  image->setUserInteractionEnabled(true);  // Hit, and leaves its touches to others.
  touches.down(1, {60, 60}, 0);
  touches.move(1, {70, 70}, 0);
  touches.cancel(1, 0);
  EXPECT_EQ(inner->log, (Log{"began B", "moved M", "cancelled C"}));
  EXPECT_EQ(outer->log, (Log{"began B"}));
  EXPECT_EQ(outer->locations, (std::vector<CGPoint>{{60, 60}}));
}

TEST_F(Touches, AFingerThatLiftsLeavesItsViewToTheNextAtOnce) {
  struct Restless : Recorder {
    using Recorder::Recorder;
    void touchesEnded(const UITouchSet& ended, UIEvent* event) override {
      Recorder::touchesEnded(ended, event);
      if (log.size() < 4) touches->down(2, {20, 20}, 0);
      if (log.size() == 4) throw std::logic_error("what a view may do");
    }
    TouchDispatcher* touches = nullptr;
  };
  auto view = addView<Restless>(*window, {{0, 0}, {100, 100}});
  view->touches = &touches;
  view->log.clear();
  touches.down(1, {10, 10}, 0);
  touches.up(1, {10, 10}, 0);
  EXPECT_THROW(touches.up(2, {20, 20}, 0), std::logic_error);
  touches.down(3, {30, 30}, 0);
  EXPECT_EQ(view->log, (Log{"began B", "ended E", "began B", "ended E", "began B"}));
}

/// Counts the actions that reach it.
class Target : public NSObject {
  OBJC_CLASS(Target, NSObject)
 public:
  int plain = 0;
  id sender;
};

TEST_F(Touches, ControlsTurnThemIntoActions) {
  Target::objcClass().addMethod(
      "plain", +[](NSObject& self) { ++static_cast<Target&>(self).plain; });
  Target::objcClass().addMethod(
      "open:", +[](NSObject& self, const id& sender) { static_cast<Target&>(self).sender = sender; });
  auto target = std::make_shared<Target>();
  auto recorder = addView<Recorder>(*window, {{0, 0}, {200, 200}});
  auto control = addView<UIControl>(*recorder, {{100, 100}, {50, 50}});
  recorder->log.clear();
  const struct {
    const char* what;
    unsigned events;
    CGPoint lift;
    int actions;
  } cases[] = {
      {"landing", UIControlEventTouchDown, {110, 110}, 1},
      {"lifting inside", UIControlEventTouchUpInside, {149, 149}, 1},
      {"lifting outside is not inside", UIControlEventTouchUpInside, {150, 120}, 0},
      {"lifting outside", UIControlEventTouchUpOutside, {150, 120}, 1},
      {"both, and no cancelling", ~0u, {110, 110}, 2},
  };
  for (const auto& testCase : cases) {
    control = addView<UIControl>(*recorder, {{100, 100}, {50, 50}});
    control->addTarget(*target, "plain", testCase.events);
    control->addTarget(*target, "plain", testCase.events);  // Once is enough.
    target->plain = 0;
    touches.down(1, {120, 120}, 0);
    touches.move(1, testCase.lift, 0);
    touches.up(1, testCase.lift, 0);
    EXPECT_EQ(target->plain, testCase.actions) << testCase.what;
  }
  EXPECT_EQ(recorder->log, Log());  // Controls keep their touches.

  control->addTarget(*target, "open:", UIControlEventTouchCancel);
  touches.down(1, {120, 120}, 0);
  touches.cancel(1, 0);
  EXPECT_EQ(target->sender, control);
  target.reset();
  control->sendActionsForControlEvents(UIControlEventTouchCancel);  // Nobody is left to hear it.
}

}  // namespace
