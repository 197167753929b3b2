#include "platform/quartzcore/placed_layer.h"

#include <algorithm>
#include <cmath>

#include "platform/quartzcore/gaussian_blur.h"

namespace {

/// False for a transform that flattens a layer to (almost) nothing, and where the numbers have run out.
bool keepsShape(const cairo_matrix_t& m) {
  constexpr double smallestScale = 1e-4;
  const double area = std::abs(m.xx * m.yy - m.xy * m.yx);
  const double stretch = std::max(std::hypot(m.xx, m.yx), std::hypot(m.xy, m.yy));
  return std::isfinite(area) && std::isfinite(m.x0) && std::isfinite(m.y0) && area > smallestScale * stretch;
}

bool onlyMoves(const cairo_matrix_t& toDevice, CGFloat scale) {
  return toDevice.xx == scale && toDevice.yy == scale && toDevice.xy == 0 && toDevice.yx == 0;
}

double nearestPixel(double at) { return std::floor(at + 0.5); }

/// What is left over by the rounding of 32-bit numbers makes no further pixel.
double pixelsTouched(double length) {
  constexpr double rounding = 1.0 / 64;
  return std::ceil(length - rounding);
}

}  // namespace

bool sameMatrix(const cairo_matrix_t& one, const cairo_matrix_t& other) {
  return one.xx == other.xx && one.yx == other.yx && one.xy == other.xy && one.yy == other.yy &&
         one.x0 == other.x0 && one.y0 == other.y0;
}

bool Inherited::operator==(const Inherited& other) const {
  return sameMatrix(toDevice, other.toDevice) && opacity == other.opacity;
}

Inherited inheritedByRoots(CGFloat scale) {
  Inherited inherited;
  cairo_matrix_init_scale(&inherited.toDevice, scale, scale);
  return inherited;
}

bool canBeDrawn(const DeviceBox& box) {
  constexpr double farthest = 1 << 22;
  return std::max({-box.left, -box.top, box.right, box.bottom}) < farthest;
}

PlacedLayer::PlacedLayer(const CALayer& layer, const Inherited& inherited, const FrameMoment& moment)
    : layer(layer), scale(moment.scale), geometry(layer.presentationAt(moment.time)), area(geometry.bounds) {
  const CGAffineTransform t = CALayer::transformToSuperlayer(geometry);
  const cairo_matrix_t toSuper{t.a, t.b, t.c, t.d, t.tx, t.ty};
  cairo_matrix_multiply(&toDevice, &toSuper, &inherited.toDevice);
  opacity = inherited.opacity * std::clamp(geometry.opacity, 0.0f, 1.0f);
  bounds = boxThrough(toDevice, boxOf(area));
  onWholePixels = onlyMoves(toDevice, scale) && std::isfinite(toDevice.x0) && std::isfinite(toDevice.y0) &&
                  canBeDrawn(bounds);
  if (!onWholePixels) return;

  const double x = toDevice.x0 + double(area.origin.x) * scale;
  const double y = toDevice.y0 + double(area.origin.y) * scale;
  const double left = nearestPixel(x), top = nearestPixel(y);
  toDevice.x0 += left - x;
  toDevice.y0 += top - y;
  if (bounds.empty()) return;
  const double width = pixelsTouched(double(area.size.width) * scale);
  const double height = pixelsTouched(double(area.size.height) * scale);
  area.size = {CGFloat(width / scale), CGFloat(height / scale)};
  bounds = {left, top, left + width, top + height};
}

bool PlacedLayer::visible() const { return !layer.hidden() && opacity > 0 && keepsShape(toDevice); }

PlacedLayer PlacedLayer::moved(int x, int y) const {
  PlacedLayer result = *this;
  result.toDevice.x0 += x;
  result.toDevice.y0 += y;
  result.bounds = bounds.moved(x, y);
  return result;
}

RectangleShadow PlacedLayer::shadow() const {
  CGRect rect = layer.shadowPath() ? layer.shadowPath()->rect : area;
  rect.origin.x += layer.shadowOffset().width;
  rect.origin.y += layer.shadowOffset().height;
  CGColor color = layer.shadowColor();
  color.alpha *= layer.shadowOpacity() * opacity;
  return {rect, layer.shadowRadius(), color};
}

CGFloat PlacedLayer::blur() const {
  for (const auto& filter : layer.filters())
    if (filter && filter->type() == "gaussianBlur") return std::max(0.0f, filter->value("inputRadius"));
  return 0;
}

bool PlacedLayer::contentsFit() const {
  const CGImageRef& picture = layer.contents();
  if (!picture || !onWholePixels) return false;
  // A picture that was cut out for the layer may have rounded its size the other way.
  const auto fits = [](int pixels, double shown) { return pixels == shown || pixels == shown + 1; };
  return fits(picture->width(), bounds.right - bounds.left) &&
         fits(picture->height(), bounds.bottom - bounds.top);
}

CGRect PlacedLayer::contentsPlace() const {
  if (!contentsFit()) return area;
  const CGImage& picture = *layer.contents();
  return {area.origin, {CGFloat(picture.width()) / scale, CGFloat(picture.height()) / scale}};
}

BlurSigma blurSigma(const PlacedLayer& placed) {
  const AxisScale axes = axisScale(placed.toDevice);
  return {std::min(placed.blur() * axes.x, maxBlurSigma), std::min(placed.blur() * axes.y, maxBlurSigma)};
}

DeviceBox extentOf(const PlacedLayer& placed, const FrameMoment& moment) {
  DeviceBox result = placed.bounds;
  if (placed.layer.masksToBounds()) return result;
  for (const auto& sublayer : placed.layer.sublayers()) {
    const PlacedLayer inner(*sublayer, placed.inheritance(), moment);
    if (!inner.visible()) continue;
    result = result.united(extentOf(inner, moment));
    if (inner.shadow().color.alpha > 0) result = result.united(shadowBox(inner.shadow(), inner.toDevice));
  }
  return result;
}
