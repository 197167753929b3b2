#include "platform/coregraphics/cairo_support.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "platform/coregraphics/pixel_format.h"

namespace {

constexpr double kQuarterTurn = std::numbers::pi / 2;

/// How far, in pixels, a picture may lie off the pixel grid and still be taken to lie on it: what is lost on
/// the way through 32-bit geometry, and well under what can be seen.
constexpr double kGridTolerance = 1.0 / 1024;

bool isDrawable(CGRect rect) {
  return rect.size.width > 0 && rect.size.height > 0 && std::isfinite(rect.origin.x) &&
         std::isfinite(rect.origin.y) && std::isfinite(rect.size.width) && std::isfinite(rect.size.height);
}

/// Moves a matrix from picture to device pixels onto the pixel grid when it is all but there already: turns
/// by quarters, mirrorings and shifts by whole pixels. True when it is on the grid.
bool snapToGrid(cairo_matrix_t& matrix, int width, int height) {
  const cairo_matrix_t snapped{std::round(matrix.xx), std::round(matrix.yx), std::round(matrix.xy),
                               std::round(matrix.yy), std::round(matrix.x0), std::round(matrix.y0)};
  const bool keepsPixels = std::abs(snapped.xx) + std::abs(snapped.xy) == 1 &&
                           std::abs(snapped.yx) + std::abs(snapped.yy) == 1 &&
                           std::abs(snapped.xx) + std::abs(snapped.yx) == 1;
  if (!keepsPixels) return false;
  // The far corner strays the furthest.
  const double offX = std::abs(matrix.xx - snapped.xx) * width + std::abs(matrix.xy - snapped.xy) * height +
                      std::abs(matrix.x0 - snapped.x0);
  const double offY = std::abs(matrix.yx - snapped.yx) * width + std::abs(matrix.yy - snapped.yy) * height +
                      std::abs(matrix.y0 - snapped.y0);
  if (offX > kGridTolerance || offY > kGridTolerance) return false;
  matrix = snapped;
  return true;
}

/// Fills `area` with `image`, one copy of which lies on `place`; `extend` says what is around that copy.
void drawPattern(cairo_t* cairo, const CGImageRef& image, CGRect place, CGRect area, CGFloat alpha,
                 cairo_extend_t extend) {
  if (!image || !isDrawable(place) || !isDrawable(area) || !(alpha > 0)) return;
  const CGImageRef screenImage = CGImage::inScreenFormat(image);
  const CairoSurfacePtr surface = wrapAsSurface(*screenImage);
  // A source in error state would spoil the context for good.
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return;

  cairo_matrix_t imageToDevice;
  cairo_get_matrix(cairo, &imageToDevice);
  cairo_matrix_translate(&imageToDevice, place.origin.x, place.origin.y);
  cairo_matrix_scale(&imageToDevice, double(place.size.width) / image->width(),
                     double(place.size.height) / image->height());
  const bool exact = snapToGrid(imageToDevice, image->width(), image->height());
  cairo_matrix_t deviceToImage = imageToDevice;
  if (cairo_matrix_invert(&deviceToImage) != CAIRO_STATUS_SUCCESS) return;

  const CairoPatternPtr pattern(cairo_pattern_create_for_surface(surface.get()));
  cairo_pattern_set_matrix(pattern.get(), &deviceToImage);
  cairo_pattern_set_extend(pattern.get(), extend);
  // "Good" averages where a picture shrinks and is linear elsewhere.
  cairo_pattern_set_filter(pattern.get(), exact ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_GOOD);

  cairo_save(cairo);
  cairo_new_path(cairo);
  cairo_rectangle(cairo, area.origin.x, area.origin.y, area.size.width, area.size.height);
  cairo_identity_matrix(cairo);
  cairo_set_source(cairo, pattern.get());
  if (alpha >= 1) {
    cairo_fill(cairo);
  } else {
    cairo_clip(cairo);
    cairo_paint_with_alpha(cairo, alpha);
  }
  // Restoring does not bring back the path; the source lets go of the borrowed pixels here.
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
  cairo_arc(cairo, left + r, top + r, r, 2 * kQuarterTurn, 3 * kQuarterTurn);
  cairo_arc(cairo, right - r, top + r, r, 3 * kQuarterTurn, 4 * kQuarterTurn);
  cairo_arc(cairo, right - r, bottom - r, r, 0, kQuarterTurn);
  cairo_arc(cairo, left + r, bottom - r, r, kQuarterTurn, 2 * kQuarterTurn);
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
  // Padding keeps the edges from fading into what is around the picture.
  drawPattern(cairo, image, rect, rect, alpha, CAIRO_EXTEND_PAD);
}

void drawImageTiled(cairo_t* cairo, const CGImageRef& image, CGRect tile, CGRect area, CGFloat alpha) {
  drawPattern(cairo, image, tile, area, alpha, CAIRO_EXTEND_REPEAT);
}
