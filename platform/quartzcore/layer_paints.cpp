#include "platform/quartzcore/layer_paints.h"

#include <cmath>
#include <utility>

#include "platform/quartzcore/blurred_paints.h"
#include "platform/quartzcore/kept_content.h"
#include "platform/quartzcore/layer_cache.h"
#include "platform/quartzcore/layer_content.h"
#include "platform/quartzcore/screen_changes.h"

namespace {

/// Pixels. The mask of a longer shadow is not worth making whole.
constexpr int longestMask = 4096;

/// As the drawing library does it, which truncates where one would expect it to round.
std::uint8_t byteOf(CGFloat part) {
  constexpr CGFloat steps = 256;
  return part > 0 ? static_cast<std::uint8_t>(std::min(part * steps, CGFloat{fullOpacity})) : 0;
}

Pixel premultiplied(CGColor color, CGFloat opacity) {
  const CGFloat alpha = std::clamp(color.alpha * opacity, 0.0f, 1.0f);
  const auto channel = [&](CGFloat value) { return Pixel{byteOf(std::clamp(value, 0.0f, 1.0f) * alpha)}; };
  return Pixel{byteOf(alpha)} << 24 | channel(color.red) << 16 | channel(color.green) << 8 |
         channel(color.blue);
}

void add(std::vector<Paint>& paints, const PixelBox& box, const PixelBox& covered, const PixelBox& clip,
         decltype(Paint::what) what) {
  const PixelBox visible = box.intersected(clip);
  if (visible.empty()) return;
  const PixelBox visiblyCovered = covered.intersected(clip);
  paints.push_back({visible, visiblyCovered.empty() ? PixelBox{} : visiblyCovered, std::move(what)});
}

/// False, and nothing added, for a shadow that no mask will do for.
bool addShadow(const PlacedLayer& placed, const PixelBox& clip, std::vector<Paint>& paints) {
  const RectangleShadow shadow = placed.shadow();
  const DeviceBox reach = shadowBox(shadow, placed.toDevice);
  if (!(shadow.color.alpha > 0) || reach.intersected(deviceBox(clip)).empty()) return true;
  const bool masks = keepsUpright(placed.toDevice) && canBeDrawn(reach) && reach.width() <= longestMask &&
                     reach.height() <= longestMask;
  if (!masks) return false;

  // In pixels from a whole one on, so that the mask goes along with a layer that moves by such.
  const DeviceBox rect = boxThrough(placed.toDevice, boxOf(shadow.rect));
  const int left = static_cast<int>(std::floor(rect.left)), top = static_cast<int>(std::floor(rect.top));
  const AxisScale axes = axisScale(placed.toDevice);
  const LayerCache::ShadowKey key{rect.moved(-left, -top), {shadow.sigma * axes.x, shadow.sigma * axes.y}};
  const auto& mask = placed.layer.cache().shadow.get(key, [&](const LayerCache::ShadowKey&) {
    return std::make_shared<const ShadowMask>(key.rect, key.sigma, pixelsTouchedBy(reach.moved(-left, -top)));
  });
  add(paints, mask->box.moved(left, top), {}, clip,
      ShadowPaint{mask, left, top, premultiplied(shadow.color, 1)});
  return true;
}

void addColor(const PlacedLayer& placed, const PixelBox& clip, std::vector<Paint>& paints) {
  if (!placed.layer.backgroundColor()) return;
  const Pixel color = premultiplied(*placed.layer.backgroundColor(), placed.opacity);
  if (color == 0) return;
  const PixelBox box = pixelsTouchedBy(placed.bounds);
  add(paints, box, color >= opaqueBlackPixel ? box : PixelBox{}, clip, ColorPaint{color});
}

void addPattern(const PlacedLayer& placed, const PixelBox& clip, std::vector<Paint>& paints) {
  const auto& pattern = placed.layer.backgroundPattern();
  const std::uint8_t opacity = byteOf(placed.opacity);
  if (!pattern || !pattern->image || opacity == 0) return;
  const PixelBox box = pixelsTouchedBy(placed.bounds);
  const bool opaque = pattern->image->isOpaque();
  add(paints, box, opaque && opacity == fullOpacity ? box : PixelBox{}, clip,
      TilePaint{pattern->image, box.left, box.top, opacity, opaque});
}

/// A picture whose corner is the layer's, as far as the layer reaches.
void addPicture(const PlacedLayer& placed, const CGImageRef& picture, const PixelBox& clip,
                std::vector<Paint>& paints) {
  const std::uint8_t opacity = byteOf(placed.opacity);
  if (opacity == 0) return;
  const int left = static_cast<int>(placed.bounds.left), top = static_cast<int>(placed.bounds.top);
  const PixelBox whole{left, top, left + picture->width(), top + picture->height()};
  const PixelBox box = whole.intersected(pixelsTouchedBy(placed.bounds));
  const bool opaque = picture->isOpaque();
  add(paints, box, opaque && opacity == fullOpacity ? box : PixelBox{}, clip,
      PicturePaint{picture, left, top, opacity, opaque});
}

/// False, and nothing added, for content that is too large to keep a picture of.
bool addKept(const PlacedLayer& placed, const ContentTraits& traits, const PixelBox& clip,
             std::vector<Paint>& paints) {
  // Whole, if it can be, so that it goes along when the layer moves.
  PixelBox box = pixelsTouchedBy(placed.bounds);
  if (box.area() > largestKeptPicture) box = box.intersected(clip);
  if (box.area() > largestKeptPicture) return false;
  // Pieces that lie over one another are drawn as transparent as they are; one alone can become so later.
  const bool alone = traits.pieces == 1;
  const CGImageRef picture = keptContent(placed, box, alone ? 1 : placed.opacity);
  const std::uint8_t opacity = alone ? byteOf(placed.opacity) : fullOpacity;
  if (!picture || opacity == 0) return true;
  const bool covers = traits.opaque && placed.opacity == 1 && keepsUpright(placed.toDevice);
  const PixelBox covered = covers ? pixelsCoveredBy(placed.bounds) : PixelBox{};
  add(paints, box, covered, clip, PicturePaint{picture, box.left, box.top, opacity, covered.contains(box)});
  return true;
}

bool addContent(const PlacedLayer& placed, const PixelBox& clip, std::vector<Paint>& paints) {
  if (placed.bounds.intersected(deviceBox(clip)).empty() || !canBeDrawn(placed.bounds)) return true;
  const ContentTraits traits = contentTraits(placed);
  if (traits.pieces == 0) return true;
  if (!traits.pixelByPixel) return addKept(placed, traits, clip, paints);
  addColor(placed, clip, paints);
  addPattern(placed, clip, paints);
  if (const CGImageRef& picture = placed.layer.contents()) addPicture(placed, picture, clip, paints);
  if (const CGImageRef& drawn = placed.layer.displayIfNeeded(placed.scale))
    addPicture(placed, drawn, clip, paints);
  return true;
}

/// The whole subtree as one, painted plainly: into a picture that is kept, unless something in it moves.
Sublayers addSubtree(const PlacedLayer& placed, const Inherited& inherited, const FrameMoment& moment,
                     const PixelBox& clip, std::vector<Paint>& paints) {
  DeviceBox extent = extentOf(placed, moment);
  if (placed.shadow().color.alpha > 0) extent = extent.united(shadowBox(placed.shadow(), placed.toDevice));
  const PixelBox box = pixelsTouchedBy(extent.intersected(deviceBox(clip)));
  if (box.empty()) return Sublayers::Included;
  const CALayer& layer = placed.layer;
  const bool moves = layer.subtreeChangedAt() > screenChangeCount();
  const SubtreePaint subtree{&layer, inherited, layer.subtreeChangedAt(),
                             moves ? std::optional(moment.time) : std::nullopt};
  if (moves || box.area() > largestKeptPicture) {
    add(paints, box, {}, clip, subtree);
  } else if (const CGImageRef picture = keptSubtree(subtree, box, moment)) {
    add(paints, box, {}, clip, PicturePaint{picture, box.left, box.top, fullOpacity, false});
  }
  return Sublayers::Included;
}

/// A layer that masks its corners, or its edges between two pixels, with nothing in it. False, and nothing
/// added, where it is too large to keep pictures of.
bool addMaskedLeaf(const PlacedLayer& placed, const PixelBox& clip, std::vector<Paint>& paints) {
  if (placed.bounds.intersected(deviceBox(clip)).empty() || !canBeDrawn(placed.bounds)) return true;
  const PixelBox box = pixelsTouchedBy(placed.bounds);
  if (box.area() > largestKeptPicture) return false;
  const std::uint8_t opacity = byteOf(placed.opacity);
  const bool hasShadow = placed.shadow().color.alpha > 0 && opacity > 0;
  if (const CGImageRef shadow = hasShadow ? keptMaskedShadow(placed, box) : nullptr)
    add(paints, box, {}, clip, PicturePaint{shadow, box.left, box.top, opacity, false});
  const ContentTraits traits = contentTraits(placed);
  return traits.pieces == 0 || addKept(placed, traits, clip, paints);
}

void addSublayers(const PlacedLayer& placed, const FrameMoment& moment, const PixelBox& clip,
                  std::vector<Paint>& paints) {
  const Inherited inherited = placed.inheritance();
  for (const auto& sublayer : placed.layer.sublayers()) {
    const PlacedLayer inner(*sublayer, inherited, moment);
    if (!inner.visible()) continue;
    PixelBox innerClip = clip;
    if (collectPaints(inner, inherited, moment, innerClip, paints) == Sublayers::Apart)
      addSublayers(inner, moment, innerClip, paints);
  }
}

}  // namespace

Sublayers collectPaints(const PlacedLayer& placed, const Inherited& inherited, const FrameMoment& moment,
                        PixelBox& clip, std::vector<Paint>& paints) {
  const auto asOne = [&] { return addSubtree(placed, inherited, moment, clip, paints); };
  if (placed.layer.masksToBounds()) {
    const bool masksPixels = placed.masksWholePixels();
    const bool isLeaf = placed.layer.sublayers().empty() && !(placed.blur() > 0);
    if (!masksPixels && isLeaf && addMaskedLeaf(placed, clip, paints)) return Sublayers::Included;
    if (!masksPixels) return asOne();
    clip = placed.bounds.empty() ? PixelBox{} : clip.intersected(pixelsTouchedBy(placed.bounds));
    if (clip.empty()) return Sublayers::Included;
  }
  const std::size_t count = paints.size();
  if (!addShadow(placed, clip, paints)) return asOne();
  if (placed.blur() > 0) {
    if (collectBlurred(placed, moment, clip, paints)) return Sublayers::Included;
  } else if (addContent(placed, clip, paints)) {
    return Sublayers::Apart;
  }
  paints.resize(count);  // The shadow is part of it.
  return asOne();
}

bool collectContentAndSublayers(const PlacedLayer& placed, const FrameMoment& moment, const PixelBox& clip,
                                std::vector<Paint>& paints) {
  if (!addContent(placed, clip, paints)) return false;
  addSublayers(placed, moment, clip, paints);
  return true;
}
