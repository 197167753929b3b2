#include "platform/coregraphics/cg_affine_transform.h"

#include <gtest/gtest.h>

#include <numbers>

namespace {

constexpr CGFloat kQuarterTurn = std::numbers::pi_v<float> / 2;
constexpr CGAffineTransform kSkewed{2, 0.5f, -1, 3, 10, -20};
constexpr CGPoint kPoint{3, 4};

void expectNear(CGPoint actual, CGPoint expected) {
  EXPECT_NEAR(actual.x, expected.x, 1e-4f);
  EXPECT_NEAR(actual.y, expected.y, 1e-4f);
}

TEST(CGAffineTransform, CombinesInOrder) {
  const auto turnedThenMoved =
      CGAffineTransformRotate(CGAffineTransformMakeTranslation(100, 0), kQuarterTurn);
  expectNear(CGPointApplyAffineTransform({10, 0}, turnedThenMoved), {100, 10});
  const auto skewedThenScaled = CGAffineTransformConcat(kSkewed, CGAffineTransformMakeScale(-1, 2));
  const CGPoint skewed = CGPointApplyAffineTransform(kPoint, kSkewed);
  expectNear(CGPointApplyAffineTransform(kPoint, skewedThenScaled), {-skewed.x, 2 * skewed.y});
  // A quarter turn there and back is the identity to the bit.
  const auto there = CGAffineTransformRotate(CGAffineTransformIdentity, -kQuarterTurn);
  EXPECT_EQ(CGAffineTransformRotate(there, kQuarterTurn), CGAffineTransformIdentity);
}

TEST(CGAffineTransform, InvertsWhatCanBeInvertedAndLeavesTheRest) {
  const CGPoint there = CGPointApplyAffineTransform(kPoint, kSkewed);
  expectNear(CGPointApplyAffineTransform(there, CGAffineTransformInvert(kSkewed)), kPoint);
  const auto flat = CGAffineTransformMakeScale(1, 0);
  EXPECT_FALSE(CGAffineTransformIsInvertible(flat));
  EXPECT_EQ(CGAffineTransformInvert(flat), flat);
}

TEST(CGAffineTransform, FramesATransformedRectangle) {
  const auto mirrored = CGAffineTransformMakeScale(-2, 1);
  EXPECT_EQ(CGRectApplyAffineTransform(CGRectMake(10, 20, 30, 40), mirrored), CGRectMake(-80, 20, 60, 40));
}

}  // namespace
