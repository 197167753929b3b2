#include <cmath>
#include <functional>
#include <numbers>

#include "tests/uikit/views.h"

namespace {

TEST(HitTest, FindsTheFrontmostViewThatTakesTouches) {
  auto window = visibleWindow();
  auto back = addView(*window, {{0, 0}, {100, 100}});
  auto front = addView(*window, {{50, 0}, {100, 100}});
  auto inner = addView(*front, {{0, 0}, {40, 40}});
  auto overhanging = addView(*front, {{90, 90}, {60, 60}});
  const auto shrink = [&] { front->setTransform(CGAffineTransformMakeScale(0.5f, 0.5f)); };
  const auto animateAway = [&] { UIView::animateWithDuration(1, [&] { front->setCenter({250, 50}); }); };
  const auto flatten = [&] { front->setTransform(CGAffineTransformMakeScale(0, 1)); };
  const struct {
    const char* what;
    std::function<void()> setUp;
    CGPoint point;
    UIView* expected;
  } cases[] = {
      {"the front one of two", [] {}, {60, 60}, front.get()},
      {"the back one beside it", [] {}, {20, 20}, back.get()},
      {"a subview before its superview", [] {}, {60, 10}, inner.get()},
      {"the near edges belong", [] {}, {50, 0}, inner.get()},
      {"the far edges do not", [] {}, {150, 50}, window.get()},
      {"inside its superview", [] {}, {145, 95}, overhanging.get()},
      {"outside its superview", [] {}, {165, 120}, window.get()},
      {"outside of everything", [] {}, {320, 50}, nullptr},
      {"hidden", [&] { front->setHidden(true); }, {60, 60}, back.get()},
      {"no interaction", [&] { front->setUserInteractionEnabled(false); }, {60, 60}, back.get()},
      {"nearly transparent", [&] { front->setAlpha(0.009f); }, {60, 60}, back.get()},
      {"just visible", [&] { front->setAlpha(0.01f); }, {60, 60}, front.get()},
      {"shrunk away from the point", shrink, {60, 60}, back.get()},
      {"shrunk under the point", shrink, {80, 30}, inner.get()},
      {"where it was before it moves", animateAway, {60, 60}, back.get()},
      {"where it moves to", animateAway, {260, 60}, front.get()},
      {"flattened", flatten, {100, 50}, window.get()},
  };
  for (const auto& testCase : cases) {
    front->setHidden(false);
    front->setUserInteractionEnabled(true);
    front->setAlpha(1);
    front->setCenter({100, 50});
    front->setTransform(CGAffineTransformIdentity);
    testCase.setUp();
    EXPECT_EQ(window->hitTest(testCase.point, nullptr), testCase.expected) << testCase.what;
  }
}

TEST(Convert, GoesThroughFramesBoundsAndTransforms) {
  auto window = visibleWindow({{320, 20}, screenSize});
  auto scrolled = addView(*window, {{10, 100}, {200, 200}});
  scrolled->setBounds({{0, 50}, {200, 200}});
  auto turned = addView(*scrolled, {{20, 60}, {40, 20}});
  turned->setTransform(CGAffineTransformMakeRotation(std::numbers::pi_v<float> / 2));
  turned->setTransform(CGAffineTransformConcat(turned->transform(), CGAffineTransformMakeScale(-2, 2)));

  // Right of the turned view's centre is down on screen; below it is, mirrored, right.
  const struct {
    CGPoint inView, onScreen;
  } cases[] = {{{20, 10}, {370, 140}}, {{21, 10}, {370, 142}}, {{20, 11}, {372, 140}}};
  for (const auto& [inView, onScreen] : cases) {
    const CGPoint screen = turned->convertPointToScreen(inView),
                  back = turned->convertPointFromScreen(onScreen);
    EXPECT_NEAR(screen.x, onScreen.x, 1e-4);
    EXPECT_NEAR(screen.y, onScreen.y, 1e-4);
    EXPECT_NEAR(back.x, inView.x, 1e-4);
    EXPECT_NEAR(back.y, inView.y, 1e-4);
  }
}

}  // namespace
