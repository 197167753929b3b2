#pragma once

#include <cairo.h>

#include <memory>

#include "platform/coregraphics/cg_affine_transform.h"
#include "platform/coregraphics/cg_color.h"
#include "platform/coregraphics/cg_image.h"

/// What drawing code of the frameworks shares of Cairo. Internal: no public header includes this one.

struct CairoSurfaceDeleter {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
struct CairoContextDeleter {
  void operator()(cairo_t* cairo) const { cairo_destroy(cairo); }
};
struct CairoPatternDeleter {
  void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
};
using CairoSurfacePtr = std::unique_ptr<cairo_surface_t, CairoSurfaceDeleter>;
using CairoContextPtr = std::unique_ptr<cairo_t, CairoContextDeleter>;
using CairoPatternPtr = std::unique_ptr<cairo_pattern_t, CairoPatternDeleter>;

/// The longest side of a surface, in pixels. Beyond it Cairo hands out surfaces in error state.
inline constexpr int maxSurfaceSide = 32767;

/// A surface over pixels in screen layout (opaque ones become RGB24, the others ARGB32), which it borrows.
CairoSurfacePtr wrapPixels(std::uint8_t* data, int width, int height, std::size_t bytesPerRow,
                           const CGPixelFormat& format);

/// A read-only surface over the pixels of `image`, which must be in screen format. Copies nothing; the
/// surface borrows the pixels, so the picture must outlive it and whatever Cairo made of it.
CairoSurfacePtr wrapAsSurface(const CGImage& image);

/// A copy of an image surface's pixels as a picture in screen layout, opaque from RGB24. Null for a surface
/// in error state.
CGImageRef copyOfSurface(cairo_surface_t* surface);

/// Adds `rect` with round corners to the path; the radius is cut to half the shorter side, and without one
/// the corners are square. A rectangle that is empty or not finite adds nothing.
void addRoundedRectangle(cairo_t* cairo, CGRect rect, CGFloat radius);

void setSource(cairo_t* cairo, CGColor color);

/// Concatenates `transform`. One that has no inverse, which Cairo takes for an error, leaves nothing to draw
/// on until the next restore.
void concatTransform(cairo_t* cairo, CGAffineTransform transform);

/// Draws `image` (in any supported format) scaled into `rect` of the context's coordinates: untouched where
/// its pixels fall on the device's one to one, turned or mirrored or not; averaged where it shrinks, linear
/// otherwise. Null, or a rectangle that is empty or not finite, draws nothing.
void drawImageInto(cairo_t* cairo, const CGImageRef& image, CGRect rect, CGFloat alpha = 1);

/// The same, without what falls outside of `area`.
void drawImagePart(cairo_t* cairo, const CGImageRef& image, CGRect rect, CGRect area, CGFloat alpha = 1);

/// Fills `area` with copies of `image`, each of the size of `tile`, of which one lies on `tile`.
void drawImageTiled(cairo_t* cairo, const CGImageRef& image, CGRect tile, CGRect area, CGFloat alpha = 1);
