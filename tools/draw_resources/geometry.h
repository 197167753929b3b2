#pragma once

namespace draw_resources {

/// All lengths are points, y grows downwards.
struct Point {
  double x = 0;
  double y = 0;
};

/// A rectangle which layouts cut slices off, side by side.
struct Rect {
  double x = 0;
  double y = 0;
  double w = 0;
  double h = 0;

  double right() const { return x + w; }
  double bottom() const { return y + h; }
  double midX() const { return x + w / 2; }
  double midY() const { return y + h / 2; }
  Point center() const { return {midX(), midY()}; }
  Rect inset(double dx, double dy) const { return {x + dx, y + dy, w - 2 * dx, h - 2 * dy}; }
  Rect offset(double dx, double dy) const { return {x + dx, y + dy, w, h}; }

  /// Each of these cuts a slice off this rectangle and returns it.
  Rect takeTop(double length) {
    const Rect slice{x, y, w, length};
    y += length;
    h -= length;
    return slice;
  }
  Rect takeBottom(double length) {
    h -= length;
    return {x, bottom(), w, length};
  }
  Rect takeLeft(double length) {
    const Rect slice{x, y, length, h};
    x += length;
    w -= length;
    return slice;
  }
  Rect takeRight(double length) {
    w -= length;
    return {right(), y, length, h};
  }

  /// The cell of an even grid over this rectangle.
  Rect cell(int column, int row, int columns, int rows) const {
    return {x + w * column / columns, y + h * row / rows, w / columns, h / rows};
  }
};

inline Rect centeredRect(Point center, double w, double h) {
  return {center.x - w / 2, center.y - h / 2, w, h};
}

constexpr double pi = 3.14159265358979323846;

}  // namespace draw_resources
