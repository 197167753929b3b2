#include "platform/quartzcore/blurred_paints.h"

#include <algorithm>
#include <utility>

#include "platform/quartzcore/gaussian_blur.h"
#include "platform/quartzcore/layer_cache.h"
#include "platform/quartzcore/layer_paints.h"
#include "platform/quartzcore/visible_paints.h"

namespace {

/// Takes what is nothing but a colour all over the picture off its front. Such a tint comes to the same
/// before and after the blur; laid over it afterwards, it may change while the blurred picture stays.
std::vector<Paint> takeTints(std::vector<Paint>& paints, const PixelBox& picture) {
  const auto isTint = [&](const Paint& paint) {
    return paint.box == picture && std::holds_alternative<ColorPaint>(paint.what);
  };
  const auto end = std::find_if_not(paints.rbegin(), paints.rend(), isTint).base();
  std::vector<Paint> tints(end, paints.end());
  paints.erase(end, paints.end());
  return tints;
}

/// The opacity of all that goes into the picture: of a single picture, which can then be blurred as if it had
/// none.
std::uint8_t takeOpacity(std::vector<Paint>& paints) {
  auto* picture = paints.size() == 1 ? std::get_if<PicturePaint>(&paints[0].what) : nullptr;
  if (!picture) return fullOpacity;
  if (picture->opaque) paints[0].covered = paints[0].box;
  return std::exchange(picture->opacity, fullOpacity);
}

CGImageRef blurredPicture(const LayerCache::BlurKey& key, const FrameMoment& moment) {
  const CGPixelFormat format;
  const int width = key.box.width(), height = key.box.height();
  const std::size_t bytesPerRow = static_cast<std::size_t>(width) * format.bytesPerPixel();
  auto pixels = std::make_shared<std::vector<std::uint8_t>>(bytesPerRow * static_cast<std::size_t>(height));
  paintVisible({pixels->data(), width, height}, key.paints, PixelRegion(key.box), moment);
  blurGaussian(pixels->data(), width, height, bytesPerRow, key.sigma.x, key.sigma.y);
  return CGImage::create(width, height, format, bytesPerRow, std::move(pixels));
}

}  // namespace

bool collectBlurred(const PlacedLayer& placed, const FrameMoment& moment, const PixelBox& clip,
                    std::vector<Paint>& paints) {
  const DeviceBox extent = extentOf(placed, moment);
  if (extent.intersected(deviceBox(clip)).empty()) return true;
  if (!placed.onWholePixels || !canBeDrawn(extent)) return false;
  const PixelBox box = pixelsTouchedBy(extent);
  if (box.area() > largestKeptPicture) return false;

  LayerCache::BlurKey key{{}, {0, 0, box.width(), box.height()}, blurSigma(placed)};
  if (!collectContentAndSublayers(placed.moved(-box.left, -box.top), moment, key.box, key.paints))
    return false;
  const std::vector<Paint> tints = takeTints(key.paints, key.box);
  const std::uint8_t opacity = takeOpacity(key.paints);
  const auto coversAll = [&](const Paint& paint) { return paint.covered == key.box; };
  const bool opaque = std::ranges::any_of(key.paints, coversAll);
  const PixelBox visible = box.intersected(clip);
  if (!key.paints.empty()) {
    const CGImageRef& blurred = placed.layer.cache().blurred.get(
        std::move(key), [&](const LayerCache::BlurKey& what) { return blurredPicture(what, moment); });
    paints.push_back({visible, opaque && opacity == fullOpacity ? visible : PixelBox{},
                      PicturePaint{blurred, box.left, box.top, opacity, opaque}});
  }
  for (const Paint& tint : tints)
    paints.push_back({visible, tint.covered.empty() ? PixelBox{} : visible, tint.what});
  return true;
}
