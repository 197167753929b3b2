#include "platform/quartzcore/layer_content.h"

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

void drawPattern(cairo_t* cairo, const CALayer& layer, CGRect bounds, CGFloat opacity) {
  const auto& pattern = layer.backgroundPattern();
  if (!pattern || !pattern->image || !(pattern->scale > 0)) return;
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
void drawDelegateContent(cairo_t* cairo, const CALayer& layer, CGRect bounds, CGFloat opacity,
                         CGFloat scale) {
  const CGImageRef& drawn = layer.displayIfNeeded(scale);
  if (!drawn) return;
  const CGSize full = layer.contentBounds().size;
  const CGFloat pixelWidth = bounds.size.width / full.width / scale;
  const CGFloat pixelHeight = bounds.size.height / full.height / scale;
  const CGSize size{static_cast<CGFloat>(drawn->width()) * pixelWidth,
                    static_cast<CGFloat>(drawn->height()) * pixelHeight};
  drawImageInto(cairo, drawn, {bounds.origin, size}, opacity);
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

void drawLayerContent(cairo_t* cairo, const CALayer& layer, const CALayerGeometry& geometry, CGFloat opacity,
                      CGFloat scale) {
  const CGRect bounds = geometry.bounds;
  drawBackground(cairo, layer, bounds, opacity);
  drawPattern(cairo, layer, bounds, opacity);
  drawImageInto(cairo, layer.contents(), bounds, opacity);
  drawDelegateContent(cairo, layer, bounds, opacity, scale);
  if (auto gradient = dynamic_cast<const CAGradientLayer*>(&layer))
    drawGradient(cairo, *gradient, bounds, opacity);
}
