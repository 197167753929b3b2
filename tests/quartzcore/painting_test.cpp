
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <numbers>

#include "platform/quartzcore/ca_gradient_layer.h"
#include "platform/quartzcore/compositor.h"
#include "platform/quartzcore/plain_painter.h"
#include "tests/support/pictures.h"

namespace {

constexpr CGColor white{1, 1, 1, 1}, red{1, 0, 0, 1}, blue{0, 0, 1, 1};
constexpr std::uint32_t redPixel = 0xFF0000, bluePixel = 0x0000FF;

std::uint32_t pixelAt(const CGImageRef& image, int x, int y) {
  const std::uint8_t* p = image->row(y) + x * 4;
  return static_cast<std::uint32_t>(p[2] << 16 | p[1] << 8 | p[0]);
}
int redAt(const CGImageRef& image, int x, int y) { return static_cast<int>(pixelAt(image, x, y) >> 16); }

/// An opaque picture of these pixels, 0xRRGGBB.
CGImageRef picture(int width, const std::vector<std::uint32_t>& rgb) {
  std::vector<std::uint8_t> bytes(rgb.size() * 4);
  std::memcpy(bytes.data(), rgb.data(), bytes.size());
  return pictureOf(width, int(rgb.size()) / width, formatWith(kCGImageAlphaNoneSkipFirstLittle), bytes);
}

template <class Layer = CALayer>
std::shared_ptr<Layer> addLayer(CALayer& superlayer, CGRect frame, std::optional<CGColor> color = {}) {
  auto layer = std::make_shared<Layer>();
  layer->setFrame(frame);
  layer->setBackgroundColor(color);
  superlayer.addSublayer(layer);
  return layer;
}

std::shared_ptr<CAFilter> blurFilter(float radius) {
  auto filter = CAFilter::filterWithType("gaussianBlur");
  filter->setValue(radius, "inputRadius");
  return filter;
}

/// Draws blue with a red point at (5, 5).
struct Drawing : CALayerDelegate {
  bool drawsContent() const override { return true; }
  void drawLayer(CGContext& context) const override {
    context.fill({{0, 0}, {100, 100}}, blue);
    context.fill({{5, 5}, {1, 1}}, red);
  }
};

/// The layer as the compositor shows it, which has to be what the plain painter shows.
CGImageRef paint(const CALayer& layer, CGSize size, CGFloat scale, CFTimeInterval time = 0) {
  const auto plain = paintPlainly({&layer}, size, scale, time);
  const auto composed = Compositor().frame({&layer}, size, scale, time);
  EXPECT_EQ(pixelsThatDiffer(*composed, *plain, rounding), 0);
  return composed;
}

/// Compares what `build` put into a layer with a drawing of it, a letter a pixel.
void expectPixels(CGFloat scale, const std::vector<std::string>& wanted,
                  const std::function<void(CALayer&)>& build) {
  const std::map<std::uint32_t, char> letters = {{0, '.'},        {redPixel, 'r'}, {bluePixel, 'b'},
                                                 {0xFFFFFF, 'w'}, {0x800000, 'h'}, {0x990000, '1'},
                                                 {0x74003D, '2'}, {0x00003D, '3'}};
  CALayer root;
  build(root);
  const CGSize size{CGFloat(wanted[0].size()) / scale, CGFloat(wanted.size()) / scale};
  const auto image = paint(root, size, scale, RunLoop::main().now());
  std::vector<std::string> rows(wanted.size());
  for (int i = 0; i < image->width() * image->height(); ++i) {
    auto letter = letters.find(pixelAt(image, i % image->width(), i / image->width()));
    rows[static_cast<std::size_t>(i / image->width())] += letter == letters.end() ? '?' : letter->second;
  }
  EXPECT_EQ(rows, wanted);
}

TEST(Painting, PutsLayersWhereTheyBelong) {
  // On whole pixels, from the nearest one on, as many as are touched.
  expectPixels(1, {"....", "rr..", "rr.."}, [](CALayer& root) {
    addLayer(root, {{-2, 1.4f}, {4, 1.5f}}, red);
  });
  expectPixels(1, {"....", "rr..", "hh.."}, [](CALayer& root) {  // Unless scaled.
    addLayer(root, {{-1.5f, 0.25f}, {3, 3}}, red)->setTransform(CATransform3DMakeScale(4.0f / 3, 0.5f, 1));
  });
  expectPixels(2, {"......", ".rrr..", "......"}, [](CALayer& root) {
    addLayer(root, {{0.5f, 0.5f}, {1.5f, 0.5f}}, red);
  });
  expectPixels(1, {"....", ".b..", "...."}, [](CALayer& root) {  // Without area, but not without sublayers.
    auto outer = addLayer(root, {{1, 1}, {0, 0}}, red);
    outer->setBounds({{5, 5}, {0, 0}});
    addLayer(*outer, {{5, 5}, {1, 1}}, blue);
  });
  expectPixels(1, {"...."}, [](CALayer& root) {
    addLayer(*addLayer(root, {{0, 0}, {4, 1}}), {{0, 0}, {4, 1}}, red)->superlayer()->setHidden(true);
    addLayer(*addLayer(root, {{0, 0}, {4, 1}}), {{0, 0}, {4, 1}}, red)->superlayer()->setOpacity(0);
  });
  expectPixels(1, {"1122233."}, [](CALayer& root) {  // Opacity, without groups.
    auto outer = addLayer(root, {{0, 0}, {5, 1}}, red);
    outer->setOpacity(0.6f);
    addLayer(*outer, {{2, 0}, {5, 1}}, blue)->setOpacity(0.4f);
  });
}

TEST(Painting, DrawsContentInOrderAndInsideItsMask) {
  const auto redBlue = picture(2, {redPixel, bluePixel});
  Drawing drawing;
  expectPixels(1, {"brrwww"}, [&](CALayer& root) {
    auto layer = addLayer(root, {{0, 0}, {6, 1}}, white);
    layer->setFilters({CAFilter::filterWithType("colorInvert"), nullptr});  // Unknown.
    layer->setContents(picture(1, {redPixel}));
    addLayer(*layer, {{0, 0}, {1, 1}})->setDelegate(&drawing);
    addLayer(*layer, {{3, 0}, {3, 1}}, white);
  });
  expectPixels(1, {".br."}, [&](CALayer& root) {
    auto mirrored = addLayer(root, {{1, 0}, {2, 1}});
    mirrored->setContents(redBlue);
    mirrored->setTransform(CATransform3DMakeScale(-1, -1, 1));
  });
  expectPixels(2, {"..........", "...rrbrbr.", "...rrbrbr.", "...bbbrbr."}, [&](CALayer& root) {
    auto drawn = addLayer(root, {{1.5f, 0.5f}, {1.5f, 4}}), tiled = addLayer(root, {{3, 0.5f}, {1.5f, 4}});
    drawn->setBounds({{5, 5}, {1.5f, 4}}), tiled->setBounds({{5.5f, 5.5f}, {1.5f, 4}});
    drawn->setDelegate(&drawing);
    tiled->setBackgroundPattern(CAPattern{redBlue, 2});
  });
  expectPixels(1, {"........", "..bbrr..", "..bbrr..", "........"}, [](CALayer& root) {
    auto mask = addLayer(root, {{2, 1}, {4, 2}}, blue);
    mask->setMasksToBounds(true);
    mask->setShadowOpacity(1), mask->setShadowColor(white);
    addLayer(*mask, {{2, -5}, {9, 9}}, red);
  });
  expectPixels(1, {"?rr??bb?", "rrrrbbbb", "?rr??bb?"}, [](CALayer& root) {
    auto mask = addLayer(root, {{0, 0}, {4, 3}}), filled = addLayer(root, {{4, 0}, {4, 3}}, blue);
    mask->setCornerRadius(1), mask->setMasksToBounds(true), filled->setCornerRadius(1);
    addLayer(*mask, {{0, 0}, {4, 3}}, red);
  });
}

TEST(Painting, LeavesOutWhatIsFlatEndlessOrNoNumber) {
  expectPixels(1, {"....", "..r."}, [](CALayer& root) {
    constexpr CGFloat huge = 1e30f, noNumber = std::numeric_limits<CGFloat>::quiet_NaN();
    for (CGFloat bad : {0.0f, 1e-30f, 1e-5f, huge, -huge, noNumber}) {
      auto layer = addLayer(root, {{0, 0}, {4, 2}}, blue);
      layer->setContents(picture(1, {bluePixel}));
      layer->setMasksToBounds(bad > 0), layer->setShadowOpacity(1);
      layer->setTransform(CATransform3DMakeScale(bad, 1, 1));
    }
    for (CGFloat bad : {huge, noNumber}) addLayer(root, {{bad, 0}, {bad, 2}}, blue);
    addLayer(root, {{2, 1}, {1, 1}}, red);
  });
  EXPECT_EQ(Compositor().frame({}, {0, 10}, 1, 0), nullptr);
  EXPECT_EQ(paintPlainly({}, {0, 10}, 1, 0), nullptr);
}

TEST(Painting, ContentShrinksToNothingBeforeItIsGone) {
  Drawing drawing;
  auto layer = std::make_shared<CALayer>();
  layer->setDelegate(&drawing);
  layer->setFrame({{0, 0}, {8, 8}});
  CAAnimationBlock::begin();
  layer->setFrame({{0, 0}, {0, 8}});
  CAAnimationBlock::commit();
  const CFTimeInterval start = RunLoop::main().now(), halfWay = 0.1;
  const auto pixelsAt = [&](CFTimeInterval time, int x) {
    return pixelAt(paint(*layer, {8, 8}, 1, time), x, 0);
  };
  EXPECT_EQ(pixelsAt(start, 7), bluePixel);
  EXPECT_EQ(pixelsAt(start + halfWay, 2), bluePixel);
  EXPECT_EQ(pixelsAt(start + halfWay, 5), 0u);
  RunLoop::main().advanceBy(1);
  EXPECT_EQ(pixelsAt(RunLoop::main().now(), 0), 0u);
}

TEST(Painting, GradientsRunFromEdgeToEdge) {
  for (CGFloat scale : {1.0f, 2.0f}) {
    CALayer root;
    auto even = addLayer<CAGradientLayer>(root, {{0, 0}, {20, 40}});
    even->setColors({{0, 0, 0, 1}, {1, 0, 0, 1}, {0, 0, 0, 1}});
    auto placed = addLayer<CAGradientLayer>(root, {{20, 0}, {20, 40}});
    placed->setColors({{0.2f, 0, 0, 1}, {1, 0, 0, 1}});
    placed->setLocations({0.25f, 0.5f});
    placed->setOpacity(0.5f);
    const auto image = paint(root, {40, 40}, scale);
    for (int y = 0; y < image->height(); ++y) {
      const double t = (y + 0.5) / image->height(), ramp = std::clamp((t - 0.25) / 0.25, 0.0, 1.0);
      EXPECT_NEAR(redAt(image, 5, y), 255 * (1 - std::abs(1 - 2 * t)), 1.5) << y;
      EXPECT_NEAR(redAt(image, image->width() - 5, y), 127.5 * (0.2 + 0.8 * ramp), 1.5) << y;
    }
  }
}

/// What a rectangle of value 1 comes to at `point` after a Gaussian blur.
double blurred(CGRect rect, double sigma, CGPoint point) {
  auto below = [&](double edge, double at) {
    return 0.5 * std::erfc((at - edge) / (sigma * std::numbers::sqrt2));
  };
  return (below(CGRectGetMaxX(rect), point.x) - below(rect.origin.x, point.x)) *
         (below(CGRectGetMaxY(rect), point.y) - below(rect.origin.y, point.y));
}

TEST(Painting, ShadowsAndBlursAreGaussian) {
  const CGRect rect{{1, 2}, {13, 9}};
  for (auto transform : {CGAffineTransformIdentity, CGAffineTransformMakeScale(-0.5f, 1.5f),
                         CGAffineTransformMakeRotation(1.57079633f), CGAffineTransformMakeRotation(0.6f)}) {
    for (bool asShadow : {true, false}) {
      CALayer root;
      auto layer = addLayer(root, {{12.5f, 14}, {16, 12}});
      layer->setTransform(CATransform3DMakeAffineTransform(transform));
      layer->setOpacity(0.8f);
      if (asShadow) {
        layer->setShadowPath(CGPath{{{3, 1}, rect.size}});
        layer->setShadowOffset({-2, 1});
        layer->setShadowColor(red), layer->setShadowOpacity(0.9f), layer->setShadowRadius(2);
      } else {
        layer->setFilters({blurFilter(2)});
        layer->setBounds({{-8, -8}, {32, 28}});  // Wide enough for all that spreads.
        addLayer(*layer, rect, red)->setOpacity(0.9f);
      }
      const auto image = paint(root, {40, 40}, 2);
      const auto toLayer = CGAffineTransformInvert(CALayer::transformToSuperlayer(layer->model()));
      for (int i = 0; i < 80 * 80; i += 7) {
        const CGPoint center{(CGFloat(i % 80) + 0.5f) / 2, (CGFloat(i / 80) + 0.5f) / 2};
        const double wanted =
            0.8 * 0.9 * 255 * blurred(rect, 2, CGPointApplyAffineTransform(center, toLayer));
        ASSERT_NEAR(redAt(image, i % 80, i / 80), wanted, 3) << i % 80 << ", " << i / 80;
      }
    }
  }
}

TEST(Painting, BlurKeepsWhatIsFlatToItsEdges) {
  expectPixels(2, {"........11111111111", "........11111111111"}, [](CALayer& root) {
    auto layer =
        addLayer(root, {{4, -9}, {99, 99}}, CGColor{0.6f, 0, 0, 1});  // Goes on outside of the screen.
    layer->setFilters({blurFilter(1)});
  });
}

}  // namespace
