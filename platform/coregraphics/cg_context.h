#pragma once

#include <memory>
#include <string_view>

#include "platform/coregraphics/cg_affine_transform.h"
#include "platform/coregraphics/cg_color.h"
#include "platform/coregraphics/cg_image.h"

struct _cairo;

enum class CGTextAlignment { Left = 0, Center = 1, Right = 2 };

struct CGTextStyle {
  CGFloat fontSize = 17;  ///< In points.
  bool bold = false;
  CGColor color{0, 0, 0, 1};
  CGTextAlignment alignment = CGTextAlignment::Left;
};

/// Drawing in points, y downward, onto a bitmap of some scale. What views draw themselves with.
class CGContext {
 public:
  /// A transparent bitmap for `size` points at `scale` pixels a point (rounded up to whole pixels, at least
  /// one).
  CGContext(CGSize size, CGFloat scale);
  CGContext(const CGContext&) = delete;
  CGContext& operator=(const CGContext&) = delete;
  ~CGContext();

  void save();
  void restore();
  void concat(CGAffineTransform transform);
  void clipTo(CGRect rect, CGFloat cornerRadius = 0);

  void fill(CGRect rect, CGColor color, CGFloat cornerRadius = 0);
  /// From `top` at the rectangle's upper edge to `bottom` at its lower one.
  void fillGradient(CGRect rect, CGColor top, CGColor bottom, CGFloat cornerRadius = 0);
  /// Scales the picture into `rect`, smoothly when the sizes differ; null draws nothing.
  void drawImage(const CGImageRef& image, CGRect rect, CGFloat alpha = 1);
  /// Tiles the picture, each tile `tile` points large, over `rect`, the first one at the context's origin.
  void drawTiled(const CGImageRef& image, CGSize tile, CGRect rect, CGFloat alpha = 1);
  /// One line, centred vertically in `rect`, shortened with an ellipsis where it does not fit.
  void drawText(std::string_view text, CGRect rect, const CGTextStyle& style);

  /// A picture of what has been drawn so far, in screen layout. The pixels are copied.
  CGImageRef createImage() const;

  /// The drawing library's own handle, for the layer renderer. Owned by the context.
  _cairo* handle() const { return cairo_; }

 private:
  _cairo* cairo_;  // Owned.
};
