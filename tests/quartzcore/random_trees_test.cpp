#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>
#include <string>

#include "platform/quartzcore/ca_gradient_layer.h"
#include "platform/quartzcore/compositor.h"
#include "platform/quartzcore/plain_painter.h"
#include "tests/support/pictures.h"

namespace {

constexpr CGSize screen{60, 80};  // Points.
constexpr CGFloat scale = 2;
constexpr int trees = 60, framesPerTree = 25, layersPerTree = 10;

struct Spots : CALayerDelegate {
  bool drawsContent() const override { return true; }
  void drawLayer(CGContext& context) const override {
    context.fill({{1, 1}, {40, 9}}, {0.2f, 0.9f, 0.4f, 0.7f}, 3);
    context.fill({{5, 5.5f}, {9, 90}}, {0.8f, 0.1f, 0.9f, 1});
  }
};

/// Grows trees and changes them, now here, now there.
class Gardener {
 public:
  /// Upright trees have no layer that is turned but by quarters.
  Gardener(unsigned seed, bool upright) : upright_(upright), random_(seed) {
    for (int i = 0; i < layersPerTree; ++i) grow();
  }

  const CALayer& root() const { return *root_; }
  std::string lastChange() const { return lastChange_; }

  void change() {
    CALayer& layer = any();
    const int what = below(10);
    const bool turns = what == 9;
    const bool animates = below(4) == 0 && !(turns && upright_);
    if (animates) CAAnimationBlock::begin();
    lastChange_ = std::to_string(what) + (animates ? ", animated" : "");
    if (what < 3) layer.setPosition({between(-20, 80), between(-20, 100)});
    if (what == 3) layer.setBounds({{between(-9, 9), 0}, {between(0, 70), between(0, 90)}});
    if (what == 4) layer.setOpacity(below(2) ? 1 : between(-0.1f, 1.1f));
    if (what == 5) layer.setHidden(below(3) == 0);
    if (what == 6) dress(layer);
    if (what == 7) grow();
    if (what == 8 && layers_.size() > 3) layer.removeFromSuperlayer();
    if (turns) turn(layer);
    if (animates) CAAnimationBlock::commit();
  }

 private:
  int below(int end) { return std::uniform_int_distribution(0, end - 1)(random_); }
  /// Mostly on the screen's pixels.
  CGFloat between(CGFloat low, CGFloat high) {
    const CGFloat value = std::uniform_real_distribution(low, high)(random_);
    return high - low > 2 && below(3) ? std::round(value * 2) / 2 : value;
  }
  CGColor color() { return {between(0, 1), between(0, 1), between(0, 1), below(2) ? 1 : between(0, 1)}; }
  CALayer& any() { return *layers_[std::size_t(below(int(layers_.size())))]; }

  void grow() {
    std::shared_ptr<CALayer> layer = below(4) ? std::make_shared<CALayer>() : gradient();
    layer->setDelegate(&plain_);
    layer->setFrame({{between(-20, 50), between(-20, 70)}, {between(1, 60), between(1, 80)}});
    dress(*layer);
    any().insertSublayer(layer, std::size_t(below(4)));
    layers_.push_back(layer);
  }

  std::shared_ptr<CALayer> gradient() {
    auto layer = CAGradientLayer::layer();
    layer->setColors({color(), color(), color()});
    return layer;
  }

  /// A picture as large as the layer to the pixel, or one to be stretched.
  CGImageRef picture(const CALayer& layer) {
    const auto pixels = [&](CGFloat points) { return std::clamp(int(std::ceil(points * scale)), 1, 200); };
    const CGSize size = layer.bounds().size;
    const auto image = below(3) ? noise(pixels(size.width), pixels(size.height)) : noise(9, 7);
    if (below(2)) return image;
    return pictureOf(image->width(), image->height(), formatWith(kCGImageAlphaPremultipliedFirstLittle),
                     translucent(*image));
  }
  static std::vector<std::uint8_t> translucent(const CGImage& image) {
    std::vector<std::uint8_t> bytes(image.row(0),
                                    image.row(0) + image.bytesPerRow() * std::size_t(image.height()));
    for (std::size_t i = 0; i < bytes.size(); i += 4) {
      for (std::size_t k = 0; k < 3; ++k) bytes[i + k] = std::min(bytes[i + k], bytes[i + 3]);
    }
    return bytes;
  }

  void dress(CALayer& layer) {
    switch (below(9)) {
      case 0:
      case 1:
        return layer.setBackgroundColor(color());
      case 2:
        return layer.setContents(below(4) ? picture(layer) : nullptr);
      case 3:
        layer.setDelegate(&spots_);
        return layer.setNeedsDisplay();
      case 4:
        layer.setShadowColor(color());
        layer.setShadowOpacity(between(0, 1));
        layer.setShadowOffset({between(-5, 5), between(-5, 5)});
        return layer.setShadowRadius(between(0, 4));
      case 5:
        layer.setMasksToBounds(below(2));
        return layer.setCornerRadius(below(3) ? 0 : between(0, 9));
      case 6:
        return layer.setBackgroundPattern(CAPattern{noise(8, 5), 2});
      case 7: {
        auto filter = CAFilter::filterWithType("gaussianBlur");
        filter->setValue(between(0, 2), "inputRadius");
        return layer.setFilters({filter});
      }
      default:
        return layer.setFilters({});
    }
  }

  void turn(CALayer& layer) {
    const CGAffineTransform transforms[] = {
        CGAffineTransformIdentity,
        CGAffineTransformMakeScale(between(0.3f, 2), between(0.3f, 2)),
        CGAffineTransformMakeRotation(1.57079633f),
        CGAffineTransformMakeScale(-1, 1),
        CGAffineTransformMakeRotation(between(0, 6)),
    };
    layer.setTransform(CATransform3DMakeAffineTransform(transforms[below(upright_ ? 4 : 5)]));
  }

  struct Plain : CALayerDelegate {};
  bool upright_;
  std::mt19937 random_;
  Plain plain_;
  Spots spots_;
  std::shared_ptr<CALayer> root_ = std::make_shared<CALayer>();
  std::vector<std::shared_ptr<CALayer>> layers_{root_};
  std::string lastChange_;
};

/// Frames of many trees, as `compare` takes them: composed, painted plainly.
void compareFrames(bool upright, const std::function<void(const CGImage&, const CGImage&)>& compare) {
  for (unsigned seed = 0; seed < trees; ++seed) {
    Gardener gardener(seed, upright);
    Compositor compositor;
    CGImageRef held;
    for (int frame = 0; frame < framesPerTree; ++frame) {
      SCOPED_TRACE("seed " + std::to_string(seed) + ", frame " + std::to_string(frame) + ", after " +
                   gardener.lastChange());
      const CFTimeInterval now = RunLoop::main().now();
      const auto composed = compositor.frame({&gardener.root()}, screen, scale, now);
      compare(*composed, *paintPlainly({&gardener.root()}, screen, scale, now));
      if (testing::Test::HasFailure()) return;
      if (frame % 5 == 0) held = composed;  // Now and then somebody keeps a picture.
      gardener.change();
      if (frame % 2 == 0) RunLoop::main().advanceBy(0.07);
    }
  }
}

TEST(RandomTrees, LookTheSameComposedAndPaintedPlainly) {
  compareFrames(true, [](const CGImage& composed, const CGImage& plain) {
    EXPECT_EQ(pixelsThatDiffer(composed, plain, rounding), 0);
  });
}

/// The drawing library is not of one mind about edges across the pixels: it depends on what it is clipped to.
TEST(RandomTrees, LookTheSameTurnedButForTheirEdges) {
  compareFrames(false, [](const CGImage& composed, const CGImage& plain) {
    const int pixels = composed.width() * composed.height();
    EXPECT_LE(pixelsThatDiffer(composed, plain, rounding), pixels / 50);
  });
}

}  // namespace
