#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/quartzcore/device_box.h"

/// An upright rectangle of whole device pixels. Internal to the renderer.
struct PixelBox {
  int left = 0, top = 0, right = 0, bottom = 0;
  bool operator==(const PixelBox&) const = default;

  int width() const { return right - left; }
  int height() const { return bottom - top; }
  bool empty() const { return left >= right || top >= bottom; }
  std::int64_t area() const { return empty() ? 0 : std::int64_t{width()} * height(); }

  PixelBox moved(int x, int y) const { return {left + x, top + y, right + x, bottom + y}; }
  PixelBox intersected(const PixelBox& other) const {
    return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
            std::min(bottom, other.bottom)};
  }
  bool intersects(const PixelBox& other) const { return !intersected(other).empty(); }
  bool contains(const PixelBox& other) const {
    return left <= other.left && top <= other.top && right >= other.right && bottom >= other.bottom;
  }
  /// The smallest box around both; an empty one adds nothing.
  PixelBox united(const PixelBox& other) const {
    if (empty()) return other;
    if (other.empty()) return *this;
    return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
            std::max(bottom, other.bottom)};
  }
};

/// The whole pixels that `box`, which lies within what an int can count, touches.
inline PixelBox pixelsTouchedBy(const DeviceBox& box) {
  if (box.empty()) return {};
  return {int(std::floor(box.left)), int(std::floor(box.top)), int(std::ceil(box.right)),
          int(std::ceil(box.bottom))};
}

/// The whole pixels that `box` covers from edge to edge.
inline PixelBox pixelsCoveredBy(const DeviceBox& box) {
  if (box.empty()) return {};
  return {int(std::ceil(box.left)), int(std::ceil(box.top)), int(std::floor(box.right)),
          int(std::floor(box.bottom))};
}

inline DeviceBox deviceBox(const PixelBox& box) {
  return {double(box.left), double(box.top), double(box.right), double(box.bottom)};
}
