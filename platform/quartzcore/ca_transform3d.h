#pragma once

#include "platform/coregraphics/cg_affine_transform.h"

/// A 4 x 4 matrix for row vectors. Only its two-dimensional part is drawn.
struct CATransform3D {
  CGFloat m11 = 1, m12 = 0, m13 = 0, m14 = 0;
  CGFloat m21 = 0, m22 = 1, m23 = 0, m24 = 0;
  CGFloat m31 = 0, m32 = 0, m33 = 1, m34 = 0;
  CGFloat m41 = 0, m42 = 0, m43 = 0, m44 = 1;
  bool operator==(const CATransform3D&) const = default;
};

inline constexpr CATransform3D CATransform3DIdentity{};

CATransform3D CATransform3DMakeScale(CGFloat sx, CGFloat sy, CGFloat sz);
CATransform3D CATransform3DMakeAffineTransform(CGAffineTransform transform);
CGAffineTransform CATransform3DGetAffineTransform(const CATransform3D& transform);

/// Between two transforms, `progress` 0 to 1: translation, rotation, scale and skew each on their own, so
/// that a scale by -1 is reached by half a turn. Where one end flattens the plane there is no rotation to
/// follow, and the matrix components run straight.
CATransform3D interpolate(const CATransform3D& from, const CATransform3D& to, CGFloat progress);
