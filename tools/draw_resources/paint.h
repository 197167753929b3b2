#pragma once

#include <cairo.h>

#include <initializer_list>
#include <memory>

#include "tools/draw_resources/geometry.h"

namespace draw_resources {

/// Components 0 to 1, not premultiplied.
struct Color {
  double r = 0;
  double g = 0;
  double b = 0;
  double a = 1;

  Color withAlpha(double alpha) const { return {r, g, b, alpha}; }
};

/// A colour from 0xRRGGBB.
constexpr Color hex(unsigned rgb, double alpha = 1) {
  return {((rgb >> 16) & 0xff) / 255.0, ((rgb >> 8) & 0xff) / 255.0, (rgb & 0xff) / 255.0, alpha};
}

/// From `a` (t = 0) to `b` (t = 1), alpha included.
constexpr Color mix(Color a, Color b, double t) {
  return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t, a.a + (b.a - a.a) * t};
}

inline constexpr Color pureWhite = hex(0xffffff);
inline constexpr Color pureBlack = hex(0x000000);
inline constexpr Color transparent = hex(0x000000, 0);

constexpr Color white(double alpha) { return hex(0xffffff, alpha); }
constexpr Color black(double alpha) { return hex(0x000000, alpha); }
constexpr Color lighter(Color color, double amount) { return mix(color, hex(0xffffff, color.a), amount); }
constexpr Color darker(Color color, double amount) { return mix(color, hex(0x000000, color.a), amount); }

struct Stop {
  double at;  // 0 to 1 along the gradient
  Color color;
};

/// What a shape is filled with: a colour, or a gradient in the coordinates of the canvas.
class Paint {
 public:
  Paint(Color color)
      : pattern_(cairo_pattern_create_rgba(color.r, color.g, color.b, color.a), cairo_pattern_destroy) {}

  static Paint linear(Point from, Point to, std::initializer_list<Stop> stops) {
    return {cairo_pattern_create_linear(from.x, from.y, to.x, to.y), stops};
  }
  static Paint vertical(const Rect& rect, std::initializer_list<Stop> stops) {
    return linear({rect.x, rect.y}, {rect.x, rect.bottom()}, stops);
  }
  static Paint vertical(const Rect& rect, Color top, Color bottom) {
    return vertical(rect, {{0, top}, {1, bottom}});
  }
  static Paint radial(Point center, double radius, std::initializer_list<Stop> stops) {
    return {cairo_pattern_create_radial(center.x, center.y, 0, center.x, center.y, radius), stops};
  }

  cairo_pattern_t* pattern() const { return pattern_.get(); }

 private:
  Paint(cairo_pattern_t* gradient, std::initializer_list<Stop> stops)
      : pattern_(gradient, cairo_pattern_destroy) {
    for (const auto& [at, color] : stops) {
      cairo_pattern_add_color_stop_rgba(gradient, at, color.r, color.g, color.b, color.a);
    }
  }

  std::shared_ptr<cairo_pattern_t> pattern_;
};

}  // namespace draw_resources
