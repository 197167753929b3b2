#include "platform/quartzcore/plain_painter.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "platform/coregraphics/cairo_support.h"
#include "platform/quartzcore/gaussian_blur.h"
#include "platform/quartzcore/layer_content.h"
#include "platform/quartzcore/plain_subtree.h"

namespace {

class PlainPainter {
 public:
  PlainPainter(cairo_surface_t* target, const FrameMoment& moment)
      : cairo_(cairo_create(target)), moment_(moment) {}

  void fillBlack() {
    setSource(cairo(), {0, 0, 0, 1});
    cairo_paint(cairo());
  }

  /// Everything outside `clip` may be left out.
  void draw(const CALayer& layer, const Inherited& inherited, DeviceBox clip) {
    const PlacedLayer placed(layer, inherited, moment_);
    if (!placed.visible()) return;
    const bool masks = layer.masksToBounds();
    if (masks) {
      clip = clip.intersected(placed.bounds);
      if (clip.empty() || !canBeDrawn(placed.bounds)) return;
      cairo_save(cairo());
      cairo_set_matrix(cairo(), &placed.toDevice);
      addRoundedRectangle(cairo(), placed.area, layer.cornerRadius());
      cairo_clip(cairo());
    }
    drawShadow(cairo(), placed.shadow(), placed.toDevice, clip);
    if (placed.blur() > 0)
      drawBlurred(placed, clip);
    else
      drawContentAndSublayers(placed, clip);
    if (masks) cairo_restore(cairo());
  }

 private:
  cairo_t* cairo() const { return cairo_.get(); }

  void drawContentAndSublayers(const PlacedLayer& placed, const DeviceBox& clip) {
    if (!placed.bounds.intersected(clip).empty() && canBeDrawn(placed.bounds)) {
      cairo_set_matrix(cairo(), &placed.toDevice);
      drawLayerContent(cairo(), placed, placed.opacity);
    }
    for (const auto& sublayer : placed.layer.sublayers()) draw(*sublayer, placed.inheritance(), clip);
  }

  /// By way of a picture of its own, which is no larger than what can be seen of it and what blurs into that.
  /// Its edges stay sharp: a screen-filling layer must not fade at the screen's end. The layer's mask cuts
  /// what comes out.
  void drawBlurred(const PlacedLayer& placed, const DeviceBox& clip) {
    const BlurSigma sigma = blurSigma(placed);
    const DeviceBox all = extentOf(placed, moment_);
    const DeviceBox box =
        all.intersected(clip.grown(sigma.x * gaussianReach, sigma.y * gaussianReach)).roundedOut();
    if (all.intersected(clip).empty()) return;

    const CairoSurfacePtr picture(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, box.width(), box.height()));
    cairo_surface_set_device_offset(picture.get(), -box.left, -box.top);
    PlainPainter(picture.get(), moment_).drawContentAndSublayers(placed, box);
    cairo_surface_flush(picture.get());
    if (auto* pixels = cairo_image_surface_get_data(picture.get()))
      blurGaussian(pixels, box.width(), box.height(),
                   static_cast<std::size_t>(cairo_image_surface_get_stride(picture.get())), sigma.x, sigma.y);
    cairo_surface_mark_dirty(picture.get());

    cairo_identity_matrix(cairo());
    cairo_set_source_surface(cairo(), picture.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cairo()), CAIRO_FILTER_NEAREST);
    cairo_paint(cairo());
  }

  CairoContextPtr cairo_;
  FrameMoment moment_;
};

}  // namespace

int wholePixels(CGFloat points, CGFloat scale) {
  const CGFloat pixels = std::ceil(points * scale);
  return pixels > 0 && pixels <= static_cast<CGFloat>(maxSurfaceSide) ? static_cast<int>(pixels) : 0;
}

CGImageRef paintPlainly(const std::vector<const CALayer*>& backToFront, CGSize size, CGFloat scale,
                        CFTimeInterval time) {
  const int width = wholePixels(size.width, scale), height = wholePixels(size.height, scale);
  if (width == 0 || height == 0) return nullptr;
  CGPixelFormat format;
  const std::size_t bytesPerRow = static_cast<std::size_t>(width) * format.bytesPerPixel();
  auto pixels = std::make_shared<std::vector<std::uint8_t>>(bytesPerRow * static_cast<std::size_t>(height));

  const CairoSurfacePtr screen = wrapPixels(pixels->data(), width, height, bytesPerRow, format);
  PlainPainter painter(screen.get(), {scale, time});
  painter.fillBlack();
  const DeviceBox whole{0, 0, static_cast<double>(width), static_cast<double>(height)};
  for (const CALayer* layer : backToFront)
    if (layer) painter.draw(*layer, inheritedByRoots(scale), whole);
  cairo_surface_flush(screen.get());

  // Drawn as a format with alpha, so that the byte which opaque pictures leave unused is 255 everywhere.
  format.bitmapInfo = kCGImageAlphaNoneSkipFirstLittle;
  return CGImage::create(width, height, format, bytesPerRow, std::move(pixels));
}

void paintSubtreePlainly(cairo_surface_t* target, const CALayer& layer, const Inherited& inherited,
                         const DeviceBox& clip, const FrameMoment& moment) {
  PlainPainter(target, moment).draw(layer, inherited, clip);
}
