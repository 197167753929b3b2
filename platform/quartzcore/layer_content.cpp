#include "platform/quartzcore/layer_content.h"

#include <algorithm>

#include "platform/quartzcore/ca_gradient_layer.h"

namespace {

CGColor withOpacity(CGColor color, CGFloat opacity) {
  color.alpha *= opacity;
  return color;
}

void drawBackground(cairo_t* cairo, const CALayer& layer, CGRect bounds, CGFloat opacity) {
  const auto& color = layer.backgroundColor();
  if (!color || color->alpha <= 0) return;
  setSource(cairo, withOpacity(*color, opacity));
  addRoundedRectangle(cairo, bounds, layer.cornerRadius());
  cairo_fill(cairo);
}

bool canTile(const std::optional<CAPattern>& pattern) {
  return pattern && pattern->image && pattern->scale > 0;
}

void drawPattern(cairo_t* cairo, const CALayer& layer, CGRect bounds, CGFloat opacity) {
  const auto& pattern = layer.backgroundPattern();
  if (!canTile(pattern)) return;
  const CGSize tile{static_cast<CGFloat>(pattern->image->width()) / pattern->scale,
                    static_cast<CGFloat>(pattern->image->height()) / pattern->scale};
  cairo_save(cairo);
  if (layer.cornerRadius() > 0) {
    addRoundedRectangle(cairo, bounds, layer.cornerRadius());
    cairo_clip(cairo);
  }
  drawImageTiled(cairo, pattern->image, {bounds.origin, tile}, bounds, opacity);
  cairo_restore(cairo);
}

/// What the delegate drew goes along while the bounds are resized. It comes in whole pixels.
void drawDelegateContent(cairo_t* cairo, const PlacedLayer& placed, CGFloat opacity) {
  const CGImageRef& drawn = placed.layer.displayIfNeeded(placed.scale);
  if (!drawn) return;
  const CGRect bounds = placed.geometry.bounds;
  const CGSize full = placed.layer.contentBounds().size;
  const CGFloat pixelWidth = bounds.size.width / full.width / placed.scale;
  const CGFloat pixelHeight = bounds.size.height / full.height / placed.scale;
  const CGSize size{static_cast<CGFloat>(drawn->width()) * pixelWidth,
                    static_cast<CGFloat>(drawn->height()) * pixelHeight};
  drawImagePart(cairo, drawn, {bounds.origin, size}, placed.area, opacity);
}

void drawGradient(cairo_t* cairo, const CAGradientLayer& layer, CGRect bounds, CGFloat opacity) {
  const auto& colors = layer.colors();
  const auto& locations = layer.locations();
  if (colors.empty()) return;
  const CairoPatternPtr gradient(cairo_pattern_create_linear(0, bounds.origin.y, 0, CGRectGetMaxY(bounds)));
  const bool hasLocations = locations.size() == colors.size();
  const CGFloat step = colors.size() > 1 ? 1 / static_cast<CGFloat>(colors.size() - 1) : 0;
  for (std::size_t i = 0; i < colors.size(); ++i) {
    const CGColor color = withOpacity(colors[i], opacity);
    cairo_pattern_add_color_stop_rgba(gradient.get(),
                                      hasLocations ? locations[i] : static_cast<CGFloat>(i) * step, color.red,
                                      color.green, color.blue, color.alpha);
  }
  cairo_set_source(cairo, gradient.get());
  addRoundedRectangle(cairo, bounds, layer.cornerRadius());
  cairo_fill(cairo);
}

}  // namespace

ContentTraits contentTraits(const PlacedLayer& placed) {
  const CALayer& layer = placed.layer;
  const CGImageRef& drawn = layer.displayIfNeeded(placed.scale);
  const auto gradient = dynamic_cast<const CAGradientLayer*>(&layer);
  const CGFloat backgroundAlpha = layer.backgroundColor() ? layer.backgroundColor()->alpha : 0;
  const bool hasPattern = canTile(layer.backgroundPattern());
  const bool hasGradient = gradient && !gradient->colors().empty();
  const bool square = !(layer.cornerRadius() > 0);

  ContentTraits traits;
  traits.pieces =
      (backgroundAlpha > 0) + hasPattern + (layer.contents() != nullptr) + (drawn != nullptr) + hasGradient;

  const bool contentsCopy =
      !layer.contents() || (placed.contentsFit() && layer.contents()->isInScreenLayout());
  const bool patternCopies = !hasPattern || (square && layer.backgroundPattern()->scale == placed.scale &&
                                             layer.backgroundPattern()->image->isInScreenLayout());
  const bool drawnCopies = !drawn || placed.geometry.bounds.size == layer.contentBounds().size;
  traits.pixelByPixel = placed.onWholePixels && !hasGradient && (square || !(backgroundAlpha > 0)) &&
                        patternCopies && contentsCopy && drawnCopies;

  const bool showsCorners = square || !layer.masksToBounds();
  const auto isOpaque = [](const CGColor& color) { return color.alpha >= 1; };
  traits.opaque = (square && backgroundAlpha >= 1) ||
                  (square && hasPattern && layer.backgroundPattern()->image->isOpaque()) ||
                  (showsCorners && layer.contents() && layer.contents()->isOpaque()) ||
                  (square && hasGradient && std::ranges::all_of(gradient->colors(), isOpaque));
  return traits;
}

void drawLayerContent(cairo_t* cairo, const PlacedLayer& placed, CGFloat opacity) {
  const CALayer& layer = placed.layer;
  drawBackground(cairo, layer, placed.area, opacity);
  drawPattern(cairo, layer, placed.area, opacity);
  drawImagePart(cairo, layer.contents(), placed.contentsPlace(), placed.area, opacity);
  drawDelegateContent(cairo, placed, opacity);
  if (auto gradient = dynamic_cast<const CAGradientLayer*>(&layer))
    drawGradient(cairo, *gradient, placed.area, opacity);
}
