#include "platform/quartzcore/kept_content.h"

#include <cmath>

#include "platform/quartzcore/layer_cache.h"
#include "platform/quartzcore/layer_content.h"
#include "platform/quartzcore/picture_scaling.h"

namespace {

/// Without what is left over when the places of layers that lie the same are added up in different orders.
double withoutNoise(double pixels) {
  constexpr double steps = 1 << 20;
  return std::round(pixels * steps) / steps;
}

/// A picture and nothing else, upright and so much smaller that the drawing library averages: slowly.
bool isShrunkPicture(const PlacedLayer& placed) {
  const CGImageRef& picture = placed.layer.contents();
  const cairo_matrix_t& m = placed.toDevice;
  const bool isUpright = m.xx > 0 && m.yy > 0 && m.xy == 0 && m.yx == 0;
  if (!picture || !picture->isInScreenLayout() || !isUpright || contentTraits(placed).pieces != 1)
    return false;
  return placed.bounds.right - placed.bounds.left < averagedBelow * picture->width() ||
         placed.bounds.bottom - placed.bounds.top < averagedBelow * picture->height();
}

CGImageRef draw(const PlacedLayer& placed, const LayerCache::ContentKey& key) {
  const CGPixelFormat format;
  const std::size_t bytesPerRow = static_cast<std::size_t>(key.width) * format.bytesPerPixel();
  auto pixels =
      std::make_shared<std::vector<std::uint8_t>>(bytesPerRow * static_cast<std::size_t>(key.height));
  if (key.opacity == 1 && isShrunkPicture(placed)) {
    const DeviceBox place = boxThrough(key.toPicture, boxOf(placed.area));
    scalePicture(*placed.layer.contents(), place, pixels->data(), key.width, key.height);
    return CGImage::create(key.width, key.height, format, bytesPerRow, std::move(pixels));
  }
  const CairoSurfacePtr surface = wrapPixels(pixels->data(), key.width, key.height, bytesPerRow, format);
  const CairoContextPtr cairo(cairo_create(surface.get()));
  cairo_set_matrix(cairo.get(), &key.toPicture);
  drawLayerContent(cairo.get(), placed, key.opacity);
  cairo_surface_flush(surface.get());
  return CGImage::create(key.width, key.height, format, bytesPerRow, std::move(pixels));
}

}  // namespace

bool LayerCache::ContentKey::operator==(const ContentKey& other) const {
  return looksChangedAt == other.looksChangedAt && bounds == other.bounds && area == other.area &&
         contentBounds == other.contentBounds && sameMatrix(toPicture, other.toPicture) &&
         width == other.width && height == other.height && opacity == other.opacity;
}

CGImageRef keptContent(const PlacedLayer& placed, const PixelBox& box, CGFloat opacity) {
  LayerCache::ContentKey key{placed.layer.looksChangedAt(),
                             placed.geometry.bounds,
                             placed.area,
                             placed.layer.contentBounds(),
                             placed.toDevice,
                             box.width(),
                             box.height(),
                             opacity};
  key.toPicture.x0 = withoutNoise(key.toPicture.x0 - box.left);
  key.toPicture.y0 = withoutNoise(key.toPicture.y0 - box.top);
  LayerCache& cache = placed.layer.cache();
  if (!cache.content || cache.contentKey != key) {
    cache.content = draw(placed, key);
    cache.contentKey = key;
  }
  return cache.content;
}
