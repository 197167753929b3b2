#pragma once

/// Points, sizes and rectangles in 32-bit floats, y downward.
using CGFloat = float;

struct CGPoint {
  CGFloat x = 0, y = 0;
  bool operator==(const CGPoint&) const = default;
};

struct CGSize {
  CGFloat width = 0, height = 0;
  bool operator==(const CGSize&) const = default;
};

struct CGRect {
  CGPoint origin;
  CGSize size;
  bool operator==(const CGRect&) const = default;
};

inline constexpr CGSize CGSizeZero{};
inline constexpr CGRect CGRectZero{};

constexpr CGPoint CGPointMake(CGFloat x, CGFloat y) { return {x, y}; }
constexpr CGSize CGSizeMake(CGFloat width, CGFloat height) { return {width, height}; }
constexpr CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  return {{x, y}, {width, height}};
}

/// The outermost edges. Sizes are taken as non-negative.
constexpr CGFloat CGRectGetMaxX(CGRect rect) { return rect.origin.x + rect.size.width; }
constexpr CGFloat CGRectGetMaxY(CGRect rect) { return rect.origin.y + rect.size.height; }
constexpr CGFloat CGRectGetMidX(CGRect rect) { return rect.origin.x + rect.size.width * 0.5f; }
constexpr CGFloat CGRectGetMidY(CGRect rect) { return rect.origin.y + rect.size.height * 0.5f; }

/// The far edges do not belong to the rectangle.
constexpr bool CGRectContainsPoint(CGRect rect, CGPoint point) {
  return point.x >= rect.origin.x && point.x < CGRectGetMaxX(rect) && point.y >= rect.origin.y &&
         point.y < CGRectGetMaxY(rect);
}
