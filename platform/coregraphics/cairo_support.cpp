#include "platform/coregraphics/cairo_support.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "platform/coregraphics/pixel_format.h"

namespace {

constexpr double quarterTurn = std::numbers::pi / 2;

bool isDrawable(CGRect rect) {
  return rect.size.width > 0 && rect.size.height > 0 && std::isfinite(rect.origin.x) &&
         std::isfinite(rect.origin.y) && std::isfinite(rect.size.width) && std::isfinite(rect.size.height);
}

/// Fills `area` with `image`, one copy of which lies on `place`; `extend` says what is around that copy.
void drawPattern(cairo_t* cairo, const CGImageRef& image, CGRect place, CGRect area, CGFloat alpha,
                 cairo_extend_t extend) {
  if (!image || !isDrawable(place) || !isDrawable(area) || !(alpha > 0)) return;
  const CGImageRef screenImage = CGImage::inScreenFormat(image);
  const CairoSurfacePtr surface = wrapAsSurface(*screenImage);
  // A source in error state would spoil the context for good.
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return;

  cairo_save(cairo);
  cairo_new_path(cairo);
  cairo_rectangle(cairo, area.origin.x, area.origin.y, area.size.width, area.size.height);
  cairo_translate(cairo, place.origin.x, place.origin.y);
  cairo_scale(cairo, double(place.size.width) / image->width(), double(place.size.height) / image->height());
  cairo_set_source_surface(cairo, surface.get(), 0, 0);
  cairo_pattern_set_extend(cairo_get_source(cairo), extend);
  // "Good" leaves pixels alone that fall on the device's, averages where a picture shrinks and is linear
  // elsewhere.
  cairo_pattern_set_filter(cairo_get_source(cairo), CAIRO_FILTER_GOOD);
  if (alpha >= 1) {
    cairo_fill(cairo);
  } else {
    cairo_clip(cairo);
    cairo_paint_with_alpha(cairo, alpha);
  }
  // With the source goes the hold on the borrowed pixels.
  cairo_restore(cairo);
}

}  // namespace

CairoSurfacePtr wrapPixels(std::uint8_t* data, int width, int height, std::size_t bytesPerRow,
                           const CGPixelFormat& format) {
  const cairo_format_t cairoFormat =
      format.bitmapInfo == kCGImageAlphaNoneSkipFirstLittle ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32;
  return CairoSurfacePtr(
      cairo_image_surface_create_for_data(data, cairoFormat, width, height, int(bytesPerRow)));
}

CairoSurfacePtr wrapAsSurface(const CGImage& image) {
  // Cairo asks for writable memory of every surface; as a source it only reads.
  auto* data = const_cast<std::uint8_t*>(image.row(0));
  return wrapPixels(data, image.width(), image.height(), image.bytesPerRow(), image.format());
}

CGImageRef copyOfSurface(cairo_surface_t* surface) {
  cairo_surface_flush(surface);
  const std::uint8_t* data = cairo_image_surface_get_data(surface);
  if (!data) return nullptr;
  CGPixelFormat format;
  if (cairo_image_surface_get_format(surface) == CAIRO_FORMAT_RGB24)
    format.bitmapInfo = kCGImageAlphaNoneSkipFirstLittle;
  const int width = cairo_image_surface_get_width(surface);
  const int height = cairo_image_surface_get_height(surface);
  const auto stride = std::size_t(cairo_image_surface_get_stride(surface));
  const std::size_t bytesPerRow = std::size_t(width) * format.bytesPerPixel();
  auto pixels = std::make_shared<std::vector<std::uint8_t>>(bytesPerRow * std::size_t(height));
  for (int y = 0; y < height; ++y) {
    // A conversion into the same format, for the unused byte: Cairo leaves anything in it.
    convertPixels(data + std::size_t(y) * stride, format, pixels->data() + std::size_t(y) * bytesPerRow,
                  format, width);
  }
  return CGImage::create(width, height, format, bytesPerRow, std::move(pixels));
}

void addRoundedRectangle(cairo_t* cairo, CGRect rect, CGFloat radius) {
  if (!isDrawable(rect)) return;
  const double left = rect.origin.x;
  const double top = rect.origin.y;
  const double right = left + rect.size.width;
  const double bottom = top + rect.size.height;
  const double r = std::min({radius, rect.size.width / 2, rect.size.height / 2});
  if (!(radius > 0)) {
    cairo_rectangle(cairo, left, top, rect.size.width, rect.size.height);
    return;
  }
  cairo_new_sub_path(cairo);
  cairo_arc(cairo, left + r, top + r, r, 2 * quarterTurn, 3 * quarterTurn);
  cairo_arc(cairo, right - r, top + r, r, 3 * quarterTurn, 4 * quarterTurn);
  cairo_arc(cairo, right - r, bottom - r, r, 0, quarterTurn);
  cairo_arc(cairo, left + r, bottom - r, r, quarterTurn, 2 * quarterTurn);
  cairo_close_path(cairo);
}

void setSource(cairo_t* cairo, CGColor color) {
  cairo_set_source_rgba(cairo, color.red, color.green, color.blue, color.alpha);
}

void concatTransform(cairo_t* cairo, CGAffineTransform transform) {
  if (!CGAffineTransformIsInvertible(transform)) {
    cairo_new_path(cairo);
    cairo_clip(cairo);
    return;
  }
  const cairo_matrix_t matrix{transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty};
  cairo_transform(cairo, &matrix);
}

void drawImageInto(cairo_t* cairo, const CGImageRef& image, CGRect rect, CGFloat alpha) {
  drawImagePart(cairo, image, rect, rect, alpha);
}

void drawImagePart(cairo_t* cairo, const CGImageRef& image, CGRect rect, CGRect area, CGFloat alpha) {
  // Padding keeps the edges from fading into what is around the picture.
  drawPattern(cairo, image, rect, area, alpha, CAIRO_EXTEND_PAD);
}

void drawImageTiled(cairo_t* cairo, const CGImageRef& image, CGRect tile, CGRect area, CGFloat alpha) {
  drawPattern(cairo, image, tile, area, alpha, CAIRO_EXTEND_REPEAT);
}
