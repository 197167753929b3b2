#pragma once

#include <memory>
#include <optional>

#include "platform/coregraphics/cg_color.h"
#include "platform/quartzcore/ca_layer.h"

class UIImage;

/// A colour, or a picture that is tiled in a colour's place. A value: copies are independent.
class UIColor {
 public:
  static UIColor colorWithRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
  static UIColor colorWithWhite(CGFloat white, CGFloat alpha) {
    return colorWithRed(white, white, white, alpha);
  }
  /// A null picture gives a pattern of nothing: transparent.
  static UIColor colorWithPatternImage(const std::shared_ptr<UIImage>& image);

  static UIColor clearColor() { return colorWithWhite(0, 0); }
  static UIColor blackColor() { return colorWithWhite(0, 1); }
  static UIColor darkGrayColor() { return colorWithWhite(1.0f / 3, 1); }
  static UIColor grayColor() { return colorWithWhite(0.5f, 1); }
  static UIColor whiteColor() { return colorWithWhite(1, 1); }

  /// Transparent for a pattern.
  CGColor cgColor() const { return color_; }
  /// The tiled picture; null for a flat colour.
  const std::shared_ptr<UIImage>& patternImage() const { return pattern_; }
  bool isGray() const { return color_.red == color_.green && color_.green == color_.blue; }
  bool operator==(const UIColor&) const = default;

 private:
  CGColor color_;
  std::shared_ptr<UIImage> pattern_;
};
