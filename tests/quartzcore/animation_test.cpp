#include <gtest/gtest.h>

#include <array>
#include <functional>

#include "platform/quartzcore/ca_layer.h"

namespace {

struct Backing : CALayerDelegate {};

/// A view-backed layer at rest, and what tests do with it.
class Animation : public testing::Test {
 protected:
  Animation() { layer->setDelegate(&backing); }

  static void animate(CFTimeInterval duration, const std::function<void()>& changes,
                      std::function<void()> completion = {}) {
    CAAnimationBlock::begin();
    CAAnimationBlock::current()->setDuration(duration);
    CAAnimationBlock::current()->setTiming(CAMediaTimingFunction::linear());
    CAAnimationBlock::current()->setCompletion(std::move(completion));
    changes();
    CAAnimationBlock::commit();
  }
  static void pump(CFTimeInterval seconds) { RunLoop::main().advanceBy(seconds); }
  void moveTo(CGFloat x) { layer->setPosition({x, 0}); }
  CGFloat xOnScreen() const { return layer->presentationAt(RunLoop::main().now()).position.x; }

  Backing backing;
  std::shared_ptr<CALayer> layer = std::make_shared<CALayer>();
};

TEST_F(Animation, RunsFromWhatIsOnScreenToTheModel) {
  animate(1, [&] { moveTo(100); });
  EXPECT_EQ(layer->position().x, 100);
  EXPECT_EQ(xOnScreen(), 0);
  pump(0.5);
  EXPECT_FLOAT_EQ(xOnScreen(), 50);
  animate(1, [&] { moveTo(0); });
  EXPECT_FLOAT_EQ(xOnScreen(), 50);
  pump(0.5);
  EXPECT_FLOAT_EQ(xOnScreen(), 25);
  animate(1, [&] { moveTo(0); });  // No change: the animation goes on undisturbed.
  moveTo(0);
  pump(0.25);
  EXPECT_FLOAT_EQ(xOnScreen(), 12.5f);
  moveTo(7);  // A change outside of a block.
  EXPECT_EQ(xOnScreen(), 7);
  EXPECT_FALSE(layer->isAnimating());
}

TEST_F(Animation, EveryPropertyRunsOnItsOwn) {
  animate(1, [&] {
    layer->setFrame({{10, 20}, {40, 60}});
    CAAnimationBlock::current()->setDuration(2);  // For later changes only.
    layer->setOpacity(0);
    layer->setTransform(CATransform3DMakeScale(3, 3, 1));
  });
  pump(0.5);
  const auto shown = layer->presentationAt(RunLoop::main().now());
  EXPECT_EQ(shown.position, CGPointMake(15, 25));
  EXPECT_EQ(shown.bounds, CGRectMake(0, 0, 20, 30));
  EXPECT_FLOAT_EQ(shown.opacity, 0.75f);
  EXPECT_FLOAT_EQ(shown.transform.m11, 1.5f);
  EXPECT_EQ(layer->presentationAt(RunLoop::main().now() + 1).position, CGPointMake(30, 50));
}

TEST_F(Animation, CompletesOnceOnTheRunLoop) {
  struct Case {
    const char* name;
    CFTimeInterval completed;
    std::function<void()> changes;            // Inside a block of one second.
    std::function<void()> meanwhile = [] {};  // A quarter of a second later.
  };
  const Case cases[] = {
      {"nothing", 0, [] {}},
      {"the value it has", 0, [&] { moveTo(0); }},
      {"no delegate", 0, [&] { layer->setDelegate(nullptr), moveTo(1); }},
      {"no duration", 0, [&] { CAAnimationBlock::current()->setDuration(0), moveTo(1); }},
      {"one", 1, [&] { moveTo(1); }},
      {"the longer of two", 2,
       [&] { moveTo(1), CAAnimationBlock::current()->setDuration(2), layer->setOpacity(0); }},
      {"replaced inside the block", 1, [&] { moveTo(1), moveTo(2); }},
      {"replaced by another block", 0.25, [&] { moveTo(1); }, [&] { animate(1, [&] { moveTo(2); }); }},
      {"ended by a plain change", 0.25, [&] { moveTo(1); }, [&] { moveTo(2); }},
      {"one of two ended", 1, [&] { moveTo(1), layer->setOpacity(0); }, [&] { moveTo(2); }},
      {"layer destroyed", 0.25, [&] { moveTo(1), layer->setOpacity(0); }, [&] { layer.reset(); }},
      {"around a longer block", 1, [&] { animate(2, [&] { moveTo(1); }), layer->setOpacity(0); }},
      {"only a longer block inside", 0, [&] { animate(2, [&] { moveTo(1); }); }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    layer = std::make_shared<CALayer>();
    layer->setDelegate(&backing);
    const CFTimeInterval start = RunLoop::main().now();
    std::vector<CFTimeInterval> completions;
    auto captured = std::make_shared<int>();
    animate(1, c.changes, [&, captured] { completions.push_back(RunLoop::main().now() - start); });
    EXPECT_TRUE(completions.empty());
    pump(0.25);
    c.meanwhile();
    pump(5);
    EXPECT_EQ(completions, std::vector{c.completed});
    EXPECT_EQ(captured.use_count(), 1);
    EXPECT_FALSE(layer && layer->isAnimating());
  }
}

TEST(MediaTimingFunction, FollowsItsCurve) {
  const std::pair<CAMediaTimingFunction, std::array<float, 6>> cases[] = {
      {CAMediaTimingFunction::linear(), {0, 0.1f, 0.25f, 0.5f, 0.9f, 1}},
      {CAMediaTimingFunction::easeInEaseOut(), {0, 0.0197224535f, 0.129161931f, 0.5f, 0.980277546f, 1}},
      {CAMediaTimingFunction::easeIn(), {0, 0.0170266097f, 0.0934646507f, 0.315356813f, 0.839427846f, 1}},
      {CAMediaTimingFunction::easeOut(), {0, 0.160572154f, 0.378138131f, 0.684643187f, 0.98297339f, 1}},
      {{1, 0, 0, 1}, {0, 0.00376167496f, 0.0297246045f, 0.5f, 0.996238325f, 1}},  // Upright in the middle.
  };
  constexpr std::array times{-1.0f, 0.1f, 0.25f, 0.5f, 0.9f, 1.5f};
  for (const auto& [timing, wanted] : cases)
    for (std::size_t i = 0; i < wanted.size(); ++i) EXPECT_FLOAT_EQ(timing.progressAt(times[i]), wanted[i]);
}

}  // namespace
