#include "platform/quartzcore/shadow.h"

#include <algorithm>
#include <numbers>

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

CairoSurfacePtr surfaceOf(const ShadowMask& mask) {
  CairoSurfacePtr surface(cairo_image_surface_create(CAIRO_FORMAT_A8, mask.box.width(), mask.box.height()));
  std::uint8_t* row = cairo_image_surface_get_data(surface.get());
  const auto bytesPerRow = cairo_image_surface_get_stride(surface.get());
  if (!row) return surface;
  cairo_surface_flush(surface.get());
  for (const std::uint32_t factor : mask.across) {
    std::ranges::transform(mask.along, row, [&](std::uint32_t x) { return shadowCoverage(x, factor); });
    row += bytesPerRow;
  }
  cairo_surface_mark_dirty(surface.get());
  return surface;
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

ShadowMask::ShadowMask(const DeviceBox& rect, AxisScale sigma, const PixelBox& box)
    : box(box),
      along(profile(box.left, box.width(), rect.left, rect.right, sigma.x, profileX)),
      across(profile(box.top, box.height(), rect.top, rect.bottom, sigma.y, profileY)) {
  const auto middle = along.begin() + box.width() / 2;
  const auto differs = [&](std::uint16_t value) { return value != *middle; };
  const auto before = std::find_if(std::make_reverse_iterator(middle), along.rend(), differs);
  firstAlike = static_cast<int>(before.base() - along.begin());
  lastAlike = static_cast<int>(std::find_if(middle, along.end(), differs) - along.begin());
}

bool keepsUpright(const cairo_matrix_t& m) {
  constexpr double nothing = 1e-6;
  const double straight = std::hypot(m.xx, m.yy), crossed = std::hypot(m.xy, m.yx);
  return std::min(straight, crossed) <= nothing * std::max(straight, crossed);
}

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
  // One more on each side to smooth with.
  const PixelBox box = pixelsTouchedBy(boxThrough(raster, visibleHere).grown(1, 1));
  const AxisScale scale = axisScale(raster);
  const ShadowMask mask(boxThrough(raster, boxOf(shadow.rect)),
                        {shadow.sigma * scale.x, shadow.sigma * scale.y}, box);

  cairo_save(cairo);
  cairo_identity_matrix(cairo);
  if (!keepsUpright(toDevice)) {
    const cairo_matrix_t rasterToShadow = inverse(raster);
    cairo_transform(cairo, &toDevice);
    cairo_transform(cairo, &rasterToShadow);
  }
  setSource(cairo, shadow.color);
  cairo_mask_surface(cairo, surfaceOf(mask).get(), box.left, box.top);
  cairo_restore(cairo);
}
