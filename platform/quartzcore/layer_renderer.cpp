#include "platform/quartzcore/layer_renderer.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "platform/coregraphics/cairo_support.h"
#include "platform/quartzcore/device_box.h"
#include "platform/quartzcore/gaussian_blur.h"
#include "platform/quartzcore/layer_content.h"
#include "platform/quartzcore/shadow.h"

namespace {

/// False for a transform that flattens a layer to (almost) nothing, and where the numbers have run out.
bool keepsShape(const cairo_matrix_t& m) {
  constexpr double smallestScale = 1e-4;
  const double area = std::abs(m.xx * m.yy - m.xy * m.yx);
  const double stretch = std::max(std::hypot(m.xx, m.yx), std::hypot(m.xy, m.yy));
  return std::isfinite(area) && std::isfinite(m.x0) && std::isfinite(m.y0) && area > smallestScale * stretch;
}

/// False for what reaches further than the drawing library can count.
bool canBeDrawn(const DeviceBox& box) {
  constexpr double farthest = 1 << 22;
  return std::max({-box.left, -box.top, box.right, box.bottom}) < farthest;
}

/// A layer somewhere in the tree, as it looks at one time.
struct PlacedLayer {
  PlacedLayer(const CALayer& layer, const cairo_matrix_t& superToDevice, CGFloat superOpacity,
              CFTimeInterval time)
      : layer(layer), geometry(layer.presentationAt(time)) {
    const CGAffineTransform t = CALayer::transformToSuperlayer(geometry);
    const cairo_matrix_t toSuper{t.a, t.b, t.c, t.d, t.tx, t.ty};
    cairo_matrix_multiply(&toDevice, &toSuper, &superToDevice);
    opacity = superOpacity * std::clamp(geometry.opacity, 0.0f, 1.0f);
    bounds = boxThrough(toDevice, boxOf(geometry.bounds));
  }

  bool visible() const { return !layer.hidden() && opacity > 0 && keepsShape(toDevice); }

  RectangleShadow shadow() const {
    CGRect rect = layer.shadowPath() ? layer.shadowPath()->rect : geometry.bounds;
    rect.origin.x += layer.shadowOffset().width;
    rect.origin.y += layer.shadowOffset().height;
    CGColor color = layer.shadowColor();
    color.alpha *= layer.shadowOpacity() * opacity;
    return {rect, layer.shadowRadius(), color};
  }

  /// Standard deviation, in points, of the blur that it goes through; 0 without one.
  CGFloat blur() const {
    for (const auto& filter : layer.filters())
      if (filter && filter->type() == "gaussianBlur") return std::max(0.0f, filter->value("inputRadius"));
    return 0;
  }

  const CALayer& layer;
  CALayerGeometry geometry;
  cairo_matrix_t toDevice;
  CGFloat opacity;
  DeviceBox bounds;
};

/// Draws layers with all that lies in them onto one surface.
class LayerPainter {
 public:
  LayerPainter(cairo_surface_t* target, CGFloat scale, CFTimeInterval time)
      : cairo_(cairo_create(target)), scale_(scale), time_(time) {}

  void fillBlack() {
    setSource(cairo(), {0, 0, 0, 1});
    cairo_paint(cairo());
  }

  /// Everything outside `clip` may be left out.
  void draw(const CALayer& layer, const cairo_matrix_t& superToDevice, CGFloat superOpacity, DeviceBox clip) {
    const PlacedLayer placed(layer, superToDevice, superOpacity, time_);
    if (!placed.visible()) return;
    const bool masks = layer.masksToBounds();
    if (masks) {
      clip = clip.intersected(placed.bounds);
      if (clip.empty() || !canBeDrawn(placed.bounds)) return;
      cairo_save(cairo());
      cairo_set_matrix(cairo(), &placed.toDevice);
      addRoundedRectangle(cairo(), placed.geometry.bounds, layer.cornerRadius());
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
      drawLayerContent(cairo(), placed.layer, placed.geometry, placed.opacity, scale_);
    }
    for (const auto& sublayer : placed.layer.sublayers())
      draw(*sublayer, placed.toDevice, placed.opacity, clip);
  }

  /// By way of a picture of its own, which is no larger than what can be seen of it and what blurs into that.
  /// Its edges stay sharp: a screen-filling layer must not fade at the screen's end. The layer's mask cuts
  /// what comes out.
  void drawBlurred(const PlacedLayer& placed, const DeviceBox& clip) {
    const AxisScale axes = axisScale(placed.toDevice);
    const double sigmaX = std::min(placed.blur() * axes.x, maxBlurSigma);
    const double sigmaY = std::min(placed.blur() * axes.y, maxBlurSigma);
    const double reachX = sigmaX * gaussianReach, reachY = sigmaY * gaussianReach;
    const DeviceBox all = extent(placed);
    const DeviceBox box = all.intersected(clip.grown(reachX, reachY)).roundedOut();
    if (all.intersected(clip).empty()) return;

    const CairoSurfacePtr picture(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, box.width(), box.height()));
    cairo_surface_set_device_offset(picture.get(), -box.left, -box.top);
    LayerPainter(picture.get(), scale_, time_).drawContentAndSublayers(placed, box);
    cairo_surface_flush(picture.get());
    if (auto* pixels = cairo_image_surface_get_data(picture.get()))
      blurGaussian(pixels, box.width(), box.height(),
                   static_cast<std::size_t>(cairo_image_surface_get_stride(picture.get())), sigmaX, sigmaY);
    cairo_surface_mark_dirty(picture.get());

    cairo_identity_matrix(cairo());
    cairo_set_source_surface(cairo(), picture.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cairo()), CAIRO_FILTER_NEAREST);
    cairo_paint(cairo());
  }

  /// The pixels that a layer's content and sublayers can touch.
  DeviceBox extent(const PlacedLayer& placed) const {
    DeviceBox result = placed.bounds;
    if (placed.layer.masksToBounds()) return result;
    for (const auto& sublayer : placed.layer.sublayers()) {
      const PlacedLayer inner(*sublayer, placed.toDevice, placed.opacity, time_);
      if (!inner.visible()) continue;
      result = result.united(extent(inner));
      if (inner.shadow().color.alpha > 0) result = result.united(shadowBox(inner.shadow(), inner.toDevice));
    }
    return result;
  }

  CairoContextPtr cairo_;
  CGFloat scale_;
  CFTimeInterval time_;
};

/// 0 where there can be no picture of that size.
int wholePixels(CGFloat points, CGFloat scale) {
  const CGFloat pixels = std::ceil(points * scale);
  return pixels > 0 && pixels <= static_cast<CGFloat>(maxSurfaceSide) ? static_cast<int>(pixels) : 0;
}

}  // namespace

CGImageRef renderLayers(const std::vector<const CALayer*>& backToFront, CGSize size, CGFloat scale,
                        CFTimeInterval time) {
  const int width = wholePixels(size.width, scale), height = wholePixels(size.height, scale);
  if (width == 0 || height == 0) return nullptr;
  CGPixelFormat format;
  const std::size_t bytesPerRow = static_cast<std::size_t>(width) * format.bytesPerPixel();
  auto pixels = std::make_shared<std::vector<std::uint8_t>>(bytesPerRow * static_cast<std::size_t>(height));

  const CairoSurfacePtr screen = wrapPixels(pixels->data(), width, height, bytesPerRow, format);
  LayerPainter painter(screen.get(), scale, time);
  painter.fillBlack();
  cairo_matrix_t pointsToPixels;
  cairo_matrix_init_scale(&pointsToPixels, scale, scale);
  const DeviceBox whole{0, 0, static_cast<double>(width), static_cast<double>(height)};
  for (const CALayer* layer : backToFront)
    if (layer) painter.draw(*layer, pointsToPixels, 1, whole);
  cairo_surface_flush(screen.get());

  // Drawn as a format with alpha, so that the byte which opaque pictures leave unused is 255 everywhere.
  format.bitmapInfo = kCGImageAlphaNoneSkipFirstLittle;
  return CGImage::create(width, height, format, bytesPerRow, std::move(pixels));
}
