#include "platform/quartzcore/kept_content.h"

#include <cmath>

#include "platform/quartzcore/layer_cache.h"
#include "platform/quartzcore/layer_content.h"
#include "platform/quartzcore/picture_scaling.h"
#include "platform/quartzcore/plain_subtree.h"

namespace {

/// Without what is left over when the places of layers that lie the same are added up in different orders.
double withoutNoise(double pixels) {
  constexpr double steps = 1 << 20;
  return std::round(pixels * steps) / steps;
}

/// Whether the layer's own mask cuts through pixels.
bool isCut(const PlacedLayer& placed) { return placed.layer.masksToBounds() && !placed.masksWholePixels(); }

void clipToMask(cairo_t* cairo, const PlacedLayer& placed) {
  addRoundedRectangle(cairo, placed.area, placed.layer.cornerRadius());
  cairo_clip(cairo);
}

/// A picture and nothing else, upright and so much smaller that the drawing library averages: slowly.
bool isShrunkPicture(const PlacedLayer& placed) {
  const CGImageRef& picture = placed.layer.contents();
  const cairo_matrix_t& m = placed.toDevice;
  const bool isUpright = m.xx > 0 && m.yy > 0 && m.xy == 0 && m.yx == 0;
  const bool isPlain = isUpright && !isCut(placed) && contentTraits(placed).pieces == 1;
  if (!picture || !picture->isInScreenLayout() || !isPlain) return false;
  return placed.bounds.right - placed.bounds.left < averagedBelow * picture->width() ||
         placed.bounds.bottom - placed.bounds.top < averagedBelow * picture->height();
}

/// A picture of what `fill(pixels, bytesPerRow)` makes of transparent pixels.
template <class Fill>
CGImageRef pictureOf(int width, int height, Fill fill) {
  const CGPixelFormat format;
  const std::size_t bytesPerRow = static_cast<std::size_t>(width) * format.bytesPerPixel();
  auto pixels = std::make_shared<std::vector<std::uint8_t>>(bytesPerRow * static_cast<std::size_t>(height));
  fill(pixels->data(), bytesPerRow);
  return CGImage::create(width, height, format, bytesPerRow, std::move(pixels));
}

/// The same, drawn onto a surface.
template <class Draw>
CGImageRef drawing(int width, int height, Draw draw) {
  return pictureOf(width, height, [&](std::uint8_t* pixels, std::size_t bytesPerRow) {
    const CairoSurfacePtr surface = wrapPixels(pixels, width, height, bytesPerRow, CGPixelFormat());
    draw(surface.get());
    cairo_surface_flush(surface.get());
  });
}

CGImageRef draw(const PlacedLayer& placed, const LayerCache::ContentKey& key) {
  if (key.opacity == 1 && isShrunkPicture(placed)) {
    const DeviceBox place = boxThrough(key.toPicture, boxOf(placed.area));
    return pictureOf(key.width, key.height, [&](std::uint8_t* pixels, std::size_t) {
      scalePicture(*placed.layer.contents(), place, reinterpret_cast<Pixel*>(pixels), key.width, key.height);
    });
  }
  return drawing(key.width, key.height, [&](cairo_surface_t* surface) {
    const CairoContextPtr cairo(cairo_create(surface));
    cairo_set_matrix(cairo.get(), &key.toPicture);
    if (isCut(placed)) clipToMask(cairo.get(), placed);
    drawLayerContent(cairo.get(), placed, key.opacity);
  });
}

LayerCache::ContentKey keyOf(const PlacedLayer& placed, const PixelBox& box, CGFloat opacity) {
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
  return key;
}

}  // namespace

bool LayerCache::ContentKey::operator==(const ContentKey& other) const {
  return looksChangedAt == other.looksChangedAt && bounds == other.bounds && area == other.area &&
         contentBounds == other.contentBounds && sameMatrix(toPicture, other.toPicture) &&
         width == other.width && height == other.height && opacity == other.opacity;
}

CGImageRef keptContent(const PlacedLayer& placed, const PixelBox& box, CGFloat opacity) {
  return placed.layer.cache().content.get(
      keyOf(placed, box, opacity), [&](const LayerCache::ContentKey& key) { return draw(placed, key); });
}

CGImageRef keptMaskedShadow(const PlacedLayer& placed, const PixelBox& box) {
  PlacedLayer opaque = placed;
  opaque.opacity = 1;
  return placed.layer.cache().maskedShadow.get(keyOf(placed, box, 1), [&](const LayerCache::ContentKey& key) {
    return drawing(key.width, key.height, [&](cairo_surface_t* surface) {
      const CairoContextPtr cairo(cairo_create(surface));
      cairo_set_matrix(cairo.get(), &key.toPicture);
      clipToMask(cairo.get(), placed);
      drawShadow(cairo.get(), opaque.shadow(), key.toPicture, deviceBox({0, 0, key.width, key.height}));
    });
  });
}

CGImageRef keptSubtree(const SubtreePaint& what, const PixelBox& box, const FrameMoment& moment) {
  return what.layer->cache().subtree.get({what, box}, [&](const LayerCache::SubtreeKey&) {
    return drawing(box.width(), box.height(), [&](cairo_surface_t* surface) {
      cairo_surface_set_device_offset(surface, -box.left, -box.top);
      paintSubtreePlainly(surface, *what.layer, what.inherited, deviceBox(box), moment);
    });
  });
}
