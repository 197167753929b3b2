#include <gtest/gtest.h>

#include <numbers>

#include "platform/quartzcore/ca_layer.h"

namespace {

constexpr CGFloat pi = std::numbers::pi_v<CGFloat>;

CATransform3D affine(CGAffineTransform transform) { return CATransform3DMakeAffineTransform(transform); }
CATransform3D rotation(CGFloat angle) { return affine(CGAffineTransformMakeRotation(angle)); }
CATransform3D scale(CGFloat x, CGFloat y) { return CATransform3DMakeScale(x, y, 1); }

void expectNear(const std::vector<CGFloat>& actual, const std::vector<CGFloat>& wanted) {
  for (std::size_t i = 0; i < wanted.size(); ++i)
    EXPECT_NEAR(actual[i], wanted[i], 1e-4f) << i << " of " << testing::PrintToString(wanted);
}
std::vector<CGFloat> list(CGRect r) { return {r.origin.x, r.origin.y, r.size.width, r.size.height}; }

TEST(LayerGeometry, FrameSizesTheBoundsThroughTheTransform) {
  constexpr CGRect wantedFrame{{10, 20}, {40, 80}};
  auto expect = [&](CATransform3D transform, CGPoint position, CGSize size, CGRect readBack) {
    CALayer layer;
    layer.setBounds({{6, 7}, {3, 4}});
    layer.setTransform(transform);
    layer.setFrame(wantedFrame);
    expectNear(list({layer.position(), layer.bounds().size}), list({position, size}));
    EXPECT_EQ(layer.bounds().origin, CGPointMake(6, 7));
    expectNear(list(layer.frame()), list(readBack));
    const auto toSuperlayer = CALayer::transformToSuperlayer(layer.model());
    expectNear(list(CGRectApplyAffineTransform(layer.bounds(), toSuperlayer)), list(readBack));
  };
  expect(scale(2, 0.5f), {30, 60}, {20, 160}, wantedFrame);
  expect(scale(-2, 1), {30, 60}, {20, 80}, wantedFrame);
  expect(rotation(pi / 2), {30, 60}, {80, 40}, wantedFrame);
  expect(affine({1, 0, 0, 1, 5, -7}), {25, 67}, {40, 80}, wantedFrame);
  expect(rotation(pi / 4), {30, 60}, {84.8528f, 84.8528f}, {{-30, 0}, {120, 120}});
  expect(scale(0, 0), {30, 60}, {3, 4}, {{30, 60}, {0, 0}});  // Without inverse: only moved.
}

TEST(LayerGeometry, TransformsRunPartByPart) {
  const CGFloat s = 0.7f, root = s * std::numbers::sqrt2_v<CGFloat> / 2;
  auto expect = [](CATransform3D from, CATransform3D to, CGFloat progress,
                   const std::vector<CGFloat>& wanted) {
    const auto t = CATransform3DGetAffineTransform(interpolate(from, to, progress));
    expectNear({t.a, t.b, t.c, t.d, t.tx, t.ty}, wanted);
  };
  expect(scale(s, s), rotation(3), 0, {s, 0, 0, s});
  expect(rotation(3), scale(s, s), 1, {s, 0, 0, s});
  expect(affine({1, 0, 0, 1, 0, 9}), affine({3, 0, 0, 2, 4, 0}), 0.5f, {2, 0, 0, 1.5f, 2, 4.5f});
  expect(affine({1, 0, 1, 1, 0, 0}), affine({1, 0, 0, 1, 0, 0}), 0.5f, {1, 0, 0.5f, 1});
  expect(scale(s, s), affine({-s, -0.0f, 0, -s, 0, 0}), 0.5f, {0, s, -s, 0});  // Half a turn.
  expect(scale(-s, -s), scale(s, s), 0.75f, {root, root, -root, root});
  expect(rotation(0.75f * pi), rotation(-0.75f * pi), 0.5f, {-1, 0, 0, -1});  // The short way round.
  expect(scale(1, 1), scale(-1, 1), 0.25f, {0.5f, 0, 0, 1});                  // Mirrored, not turned.
  expect(scale(2, 2), scale(2, -2), 0.25f, {2, 0, 0, 1});
  expect(scale(0, 0), scale(-1, -1), 0.5f, {-0.5f, 0, 0, -0.5f});  // Flat ends.
  expect(rotation(pi / 2), scale(0, 0), 0.5f, {0, 0.5f, -0.5f, 0});
}

}  // namespace
