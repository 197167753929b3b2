#pragma once

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/coregraphics/cg_geometry.h"

/// An upright rectangle in the numbers of the drawing library, as a rule device pixels. Internal to the
/// renderer.
struct DeviceBox {
  double left = 0, top = 0, right = 0, bottom = 0;
  bool operator==(const DeviceBox&) const = default;

  /// Also true of a box with an edge that is no number.
  bool empty() const { return !(left < right && top < bottom); }
  DeviceBox intersected(const DeviceBox& other) const {
    return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
            std::min(bottom, other.bottom)};
  }
  /// The smallest box around both; an empty one adds nothing.
  DeviceBox united(const DeviceBox& other) const {
    if (empty()) return other;
    if (other.empty()) return *this;
    return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
            std::max(bottom, other.bottom)};
  }
  /// An empty one stays empty.
  DeviceBox grown(double x, double y) const {
    return empty() ? *this : DeviceBox{left - x, top - y, right + x, bottom + y};
  }
  DeviceBox moved(double x, double y) const { return {left + x, top + y, right + x, bottom + y}; }
  DeviceBox roundedOut() const {
    return {std::floor(left), std::floor(top), std::ceil(right), std::ceil(bottom)};
  }
  int width() const { return static_cast<int>(right - left); }   ///< For boxes of whole pixels.
  int height() const { return static_cast<int>(bottom - top); }  ///< For boxes of whole pixels.
};

/// The edges of `rect`; an empty box where it has no area.
inline DeviceBox boxOf(CGRect rect) {
  const DeviceBox box{rect.origin.x, rect.origin.y, CGRectGetMaxX(rect), CGRectGetMaxY(rect)};
  return box.empty() ? DeviceBox{} : box;
}

/// The smallest box around `box` that has gone through `matrix`; an empty one for an empty one.
inline DeviceBox boxThrough(const cairo_matrix_t& matrix, const DeviceBox& box) {
  if (box.empty()) return {};
  auto span = [&](double scaleX, double scaleY, double offset) {
    const auto [x1, x2] = std::minmax({scaleX * box.left, scaleX * box.right});
    const auto [y1, y2] = std::minmax({scaleY * box.top, scaleY * box.bottom});
    return std::pair(x1 + y1 + offset, x2 + y2 + offset);
  };
  const auto [left, right] = span(matrix.xx, matrix.xy, matrix.x0);
  const auto [top, bottom] = span(matrix.yx, matrix.yy, matrix.y0);
  return {left, top, right, bottom};
}

/// How long a circle of radius 1 becomes along the device's axes.
struct AxisScale {
  double x, y;
  bool operator==(const AxisScale&) const = default;
};
inline AxisScale axisScale(const cairo_matrix_t& toDevice) {
  return {std::hypot(toDevice.xx, toDevice.xy), std::hypot(toDevice.yx, toDevice.yy)};
}
