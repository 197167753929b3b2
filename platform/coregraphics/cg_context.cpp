#include "platform/coregraphics/cg_context.h"

#include <algorithm>
#include <cmath>

#include "platform/coregraphics/cairo_support.h"

namespace {

/// Points to whole pixels, upward, within what a surface can have; 1 for what is no number.
int pixelCount(CGFloat points, CGFloat scale) {
  const CGFloat pixels = std::ceil(points * scale);
  if (!(pixels > 1)) return 1;
  return pixels >= CGFloat(maxSurfaceSide) ? maxSurfaceSide : int(pixels);
}

}  // namespace

CGContext::CGContext(CGSize size, CGFloat scale) {
  const CairoSurfacePtr surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, pixelCount(size.width, scale),
                                                           pixelCount(size.height, scale)));
  cairo_ = cairo_create(surface.get());
  concat(CGAffineTransformMakeScale(scale, scale));
}

CGContext::~CGContext() { cairo_destroy(cairo_); }

void CGContext::save() { cairo_save(cairo_); }

void CGContext::restore() { cairo_restore(cairo_); }

void CGContext::concat(CGAffineTransform transform) { concatTransform(cairo_, transform); }

void CGContext::clipTo(CGRect rect, CGFloat cornerRadius) {
  cairo_new_path(cairo_);
  addRoundedRectangle(cairo_, rect, cornerRadius);
  cairo_clip(cairo_);
}

void CGContext::fill(CGRect rect, CGColor color, CGFloat cornerRadius) {
  cairo_new_path(cairo_);
  addRoundedRectangle(cairo_, rect, cornerRadius);
  setSource(cairo_, color);
  cairo_fill(cairo_);
}

void CGContext::fillGradient(CGRect rect, CGColor top, CGColor bottom, CGFloat cornerRadius) {
  const CairoPatternPtr gradient(cairo_pattern_create_linear(0, rect.origin.y, 0, CGRectGetMaxY(rect)));
  cairo_pattern_add_color_stop_rgba(gradient.get(), 0, top.red, top.green, top.blue, top.alpha);
  cairo_pattern_add_color_stop_rgba(gradient.get(), 1, bottom.red, bottom.green, bottom.blue, bottom.alpha);
  cairo_new_path(cairo_);
  addRoundedRectangle(cairo_, rect, cornerRadius);
  cairo_set_source(cairo_, gradient.get());
  cairo_fill(cairo_);
}

void CGContext::drawImage(const CGImageRef& image, CGRect rect, CGFloat alpha) {
  drawImageInto(cairo_, image, rect, alpha);
}

void CGContext::drawTiled(const CGImageRef& image, CGSize tile, CGRect rect, CGFloat alpha) {
  drawImageTiled(cairo_, image, {{0, 0}, tile}, rect, alpha);
}

CGImageRef CGContext::createImage() const { return copyOfSurface(cairo_get_target(cairo_)); }
