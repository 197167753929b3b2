#include "platform/coregraphics/cg_affine_transform.h"

#include <algorithm>
#include <cmath>

namespace {

CGFloat determinant(CGAffineTransform transform) {
  return transform.a * transform.d - transform.b * transform.c;
}

}  // namespace

CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy) { return {sx, 0, 0, sy, 0, 0}; }

CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty) { return {1, 0, 0, 1, tx, ty}; }

CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle) {
  const CGFloat cosine = std::cos(angle);
  const CGFloat sine = std::sin(angle);
  return {cosine, sine, -sine, cosine, 0, 0};
}

CGAffineTransform CGAffineTransformRotate(CGAffineTransform transform, CGFloat angle) {
  return CGAffineTransformConcat(CGAffineTransformMakeRotation(angle), transform);
}

CGAffineTransform CGAffineTransformConcat(CGAffineTransform first, CGAffineTransform second) {
  return {first.a * second.a + first.b * second.c,
          first.a * second.b + first.b * second.d,
          first.c * second.a + first.d * second.c,
          first.c * second.b + first.d * second.d,
          first.tx * second.a + first.ty * second.c + second.tx,
          first.tx * second.b + first.ty * second.d + second.ty};
}

bool CGAffineTransformIsInvertible(CGAffineTransform transform) {
  const CGFloat area = determinant(transform);
  return std::isfinite(area) && area != 0 && std::isfinite(transform.tx) && std::isfinite(transform.ty);
}

CGAffineTransform CGAffineTransformInvert(CGAffineTransform transform) {
  if (!CGAffineTransformIsInvertible(transform)) return transform;
  const auto [a, b, c, d, tx, ty] = transform;
  const CGFloat area = determinant(transform);
  return {d / area, -b / area, -c / area, a / area, (c * ty - d * tx) / area, (b * tx - a * ty) / area};
}

CGPoint CGPointApplyAffineTransform(CGPoint point, CGAffineTransform transform) {
  return {transform.a * point.x + transform.c * point.y + transform.tx,
          transform.b * point.x + transform.d * point.y + transform.ty};
}

CGRect CGRectApplyAffineTransform(CGRect rect, CGAffineTransform transform) {
  const CGFloat right = CGRectGetMaxX(rect);
  const CGFloat bottom = CGRectGetMaxY(rect);
  const CGPoint topLeft = CGPointApplyAffineTransform(rect.origin, transform);
  const CGPoint topRight = CGPointApplyAffineTransform({right, rect.origin.y}, transform);
  const CGPoint bottomLeft = CGPointApplyAffineTransform({rect.origin.x, bottom}, transform);
  const CGPoint bottomRight = CGPointApplyAffineTransform({right, bottom}, transform);
  const auto [minX, maxX] = std::minmax({topLeft.x, topRight.x, bottomLeft.x, bottomRight.x});
  const auto [minY, maxY] = std::minmax({topLeft.y, topRight.y, bottomLeft.y, bottomRight.y});
  return {{minX, minY}, {maxX - minX, maxY - minY}};
}
