#include "platform/quartzcore/ca_transform3d.h"

#include <cmath>
#include <numbers>

namespace {

constexpr CGFloat halfTurn = std::numbers::pi_v<CGFloat>;

/// The linear part of a plane transform: first scale, then skew along x, then rotation.
struct LinearParts {
  CGFloat scaleX, scaleY;
  CGFloat skew;
  CGFloat angle;
};

CGFloat between(CGFloat from, CGFloat to, CGFloat progress) { return from + (to - from) * progress; }

bool isFlat(const CATransform3D& t) {
  return !CGAffineTransformIsInvertible(CATransform3DGetAffineTransform(t));
}

/// Only for transforms that are not flat.
LinearParts decompose(const CATransform3D& t) {
  CGFloat ax = t.m11, ay = t.m12, bx = t.m21, by = t.m22;
  CGFloat signX = 1, signY = 1;
  const bool mirrored = ax * by - ay * bx < 0;
  if (mirrored) {  // Take the axis as flipped that points away from its own direction the most.
    (ax < by ? signX : signY) = -1;
    ax *= signX, ay *= signX, bx *= signY, by *= signY;
  }
  const CGFloat lengthX = std::hypot(ax, ay);
  const CGFloat cosine = ax / lengthX, sine = ay / lengthX;
  const CGFloat along = bx * cosine + by * sine;
  const CGFloat across = by * cosine - bx * sine;
  // The added zero takes the sign off a negative one, which would turn half a turn into its opposite.
  return {signX * lengthX, signY * across, along / across, std::atan2(sine + 0.0f, cosine)};
}

LinearParts between(const LinearParts& from, const LinearParts& to, CGFloat progress) {
  CGFloat turn = to.angle - from.angle;
  if (turn > halfTurn) turn -= 2 * halfTurn;
  if (turn < -halfTurn) turn += 2 * halfTurn;
  return {between(from.scaleX, to.scaleX, progress), between(from.scaleY, to.scaleY, progress),
          between(from.skew, to.skew, progress), from.angle + turn * progress};
}

}  // namespace

CATransform3D CATransform3DMakeScale(CGFloat sx, CGFloat sy, CGFloat sz) {
  CATransform3D result;
  result.m11 = sx, result.m22 = sy, result.m33 = sz;
  return result;
}

CATransform3D CATransform3DMakeAffineTransform(CGAffineTransform transform) {
  CATransform3D result;
  result.m11 = transform.a, result.m12 = transform.b;
  result.m21 = transform.c, result.m22 = transform.d;
  result.m41 = transform.tx, result.m42 = transform.ty;
  return result;
}

CGAffineTransform CATransform3DGetAffineTransform(const CATransform3D& transform) {
  return {transform.m11, transform.m12, transform.m21, transform.m22, transform.m41, transform.m42};
}

CATransform3D interpolate(const CATransform3D& from, const CATransform3D& to, CGFloat progress) {
  if (progress <= 0) return from;
  if (progress >= 1) return to;
  constexpr CGFloat CATransform3D::*components[] = {
      &CATransform3D::m11, &CATransform3D::m12, &CATransform3D::m13, &CATransform3D::m14,
      &CATransform3D::m21, &CATransform3D::m22, &CATransform3D::m23, &CATransform3D::m24,
      &CATransform3D::m31, &CATransform3D::m32, &CATransform3D::m33, &CATransform3D::m34,
      &CATransform3D::m41, &CATransform3D::m42, &CATransform3D::m43, &CATransform3D::m44};
  CATransform3D result;
  for (auto component : components) result.*component = between(from.*component, to.*component, progress);
  if (isFlat(from) || isFlat(to)) return result;

  const LinearParts parts = between(decompose(from), decompose(to), progress);
  const CGFloat cosine = std::cos(parts.angle), sine = std::sin(parts.angle);
  result.m11 = parts.scaleX * cosine;
  result.m12 = parts.scaleX * sine;
  result.m21 = parts.scaleY * (parts.skew * cosine - sine);
  result.m22 = parts.scaleY * (parts.skew * sine + cosine);
  return result;
}
