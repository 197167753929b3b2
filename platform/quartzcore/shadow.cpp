#include "platform/quartzcore/shadow.h"

#include <cstdint>
#include <numbers>
#include <vector>

#include "platform/quartzcore/gaussian_blur.h"

namespace {

// The scales of the two profiles are chosen so that the product of two full values, 24 bits further down, is
// 255 and leaves room to round in 32 bits.
constexpr double profileX = 0xFF00;
constexpr double profileY = 0xFFFF;
constexpr double maxMaskSide = 4096;

/// The integral of the normal distribution's cumulative function: what an edge covers, summed up to `x`.
double edgeIntegral(double x, double sigma) {
  if (!(sigma > 0)) return std::max(x, 0.0);
  const double t = x / sigma;
  const double cumulative = 0.5 * std::erfc(-t / std::numbers::sqrt2);
  const double density = std::exp(-0.5 * t * t) * std::numbers::inv_sqrtpi / std::numbers::sqrt2;
  return sigma * (t * cumulative + density);
}

/// How much of each pixel from `first` on the blurred stretch from `low` to `high` covers, 0 to `scale`: the
/// mean over the pixel, so that a shadow without blur comes out with clean edges.
std::vector<std::uint16_t> profile(double first, int count, double low, double high, double sigma,
                                   double scale) {
  auto integral = [&](double x) { return edgeIntegral(x - low, sigma) - edgeIntegral(x - high, sigma); };
  std::vector<std::uint16_t> values;
  values.reserve(static_cast<std::size_t>(count));
  double before = integral(first);
  for (int i = 1; i <= count; ++i) {
    const double after = integral(first + i);
    values.push_back(static_cast<std::uint16_t>(std::lround(std::clamp(after - before, 0.0, 1.0) * scale)));
    before = after;
  }
  return values;
}

/// The blurred rectangle `rect` over `box`, all in the mask's own pixels. The blur is separable and so is a
/// rectangle: the mask is the product of a profile along and one across.
CairoSurfacePtr shadowMask(const DeviceBox& rect, AxisScale sigma, const DeviceBox& box) {
  const int width = box.width(), height = box.height();
  const auto along = profile(box.left, width, rect.left, rect.right, sigma.x, profileX);
  const auto across = profile(box.top, height, rect.top, rect.bottom, sigma.y, profileY);
  CairoSurfacePtr mask(cairo_image_surface_create(CAIRO_FORMAT_A8, width, height));
  std::uint8_t* row = cairo_image_surface_get_data(mask.get());
  const auto bytesPerRow = cairo_image_surface_get_stride(mask.get());
  if (!row) return mask;
  cairo_surface_flush(mask.get());
  for (const std::uint32_t factor : across) {
    for (int x = 0; x < width; ++x)
      row[x] = static_cast<std::uint8_t>((((along[x] * factor) >> 16) + 128) >> 8);
    row += bytesPerRow;
  }
  cairo_surface_mark_dirty(mask.get());
  return mask;
}

/// True when upright rectangles stay upright: no rotation, or one by quarter turns, as good as floats get it.
bool keepsUpright(const cairo_matrix_t& m) {
  constexpr double nothing = 1e-6;
  const double straight = std::hypot(m.xx, m.yy), crossed = std::hypot(m.xy, m.yx);
  return std::min(straight, crossed) <= nothing * std::max(straight, crossed);
}

/// From the shadow's coordinates to a raster for the mask: the device's own pixels where the shadow is
/// upright on it, otherwise about as fine as those along the shadow's own axes.
cairo_matrix_t maskRaster(const cairo_matrix_t& toDevice, const DeviceBox& visible) {
  if (keepsUpright(toDevice)) return toDevice;
  auto scaleFor = [](double length, double extent) { return std::min(length, maxMaskSide / extent); };
  cairo_matrix_t raster;
  cairo_matrix_init_scale(&raster,
                          scaleFor(std::hypot(toDevice.xx, toDevice.yx), visible.right - visible.left),
                          scaleFor(std::hypot(toDevice.xy, toDevice.yy), visible.bottom - visible.top));
  return raster;
}

cairo_matrix_t inverse(cairo_matrix_t matrix) {
  cairo_matrix_invert(&matrix);
  return matrix;
}

/// In the shadow's own coordinates.
DeviceBox reachOf(const RectangleShadow& shadow) {
  const double reach = std::max(shadow.sigma, 0.0) * gaussianReach;
  return boxOf(shadow.rect).grown(reach, reach);
}

}  // namespace

DeviceBox shadowBox(const RectangleShadow& shadow, const cairo_matrix_t& toDevice) {
  return boxThrough(toDevice, reachOf(shadow)).roundedOut();
}

void drawShadow(cairo_t* cairo, const RectangleShadow& shadow, const cairo_matrix_t& toDevice,
                DeviceBox visible) {
  visible = visible.intersected(shadowBox(shadow, toDevice));
  if (visible.empty() || shadow.color.alpha <= 0) return;
  const DeviceBox visibleHere = boxThrough(inverse(toDevice), visible).intersected(reachOf(shadow));
  if (visibleHere.empty()) return;

  const cairo_matrix_t raster = maskRaster(toDevice, visibleHere);
  const DeviceBox box = boxThrough(raster, visibleHere).grown(1, 1).roundedOut();  // One more to smooth with.
  const AxisScale scale = axisScale(raster);
  const auto mask = shadowMask(boxThrough(raster, boxOf(shadow.rect)),
                               {shadow.sigma * scale.x, shadow.sigma * scale.y}, box);

  cairo_save(cairo);
  cairo_identity_matrix(cairo);
  if (!keepsUpright(toDevice)) {
    const cairo_matrix_t rasterToShadow = inverse(raster);
    cairo_transform(cairo, &toDevice);
    cairo_transform(cairo, &rasterToShadow);
  }
  setSource(cairo, shadow.color);
  cairo_mask_surface(cairo, mask.get(), box.left, box.top);
  cairo_restore(cairo);
}
