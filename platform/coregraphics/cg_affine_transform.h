#pragma once

#include "platform/coregraphics/cg_geometry.h"

/// x' = a x + c y + tx, y' = b x + d y + ty.
struct CGAffineTransform {
  CGFloat a = 1, b = 0, c = 0, d = 1, tx = 0, ty = 0;
  bool operator==(const CGAffineTransform&) const = default;
};

inline constexpr CGAffineTransform CGAffineTransformIdentity{};

CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy);
CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty);
CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle);
/// `transform` with a rotation by `angle` radians applied before it.
CGAffineTransform CGAffineTransformRotate(CGAffineTransform transform, CGFloat angle);
/// First `first`, then `second`.
CGAffineTransform CGAffineTransformConcat(CGAffineTransform first, CGAffineTransform second);
/// False for a transform that flattens the plane; such a one has no inverse.
bool CGAffineTransformIsInvertible(CGAffineTransform transform);
/// The inverse; a transform without one is returned unchanged, as published.
CGAffineTransform CGAffineTransformInvert(CGAffineTransform transform);

CGPoint CGPointApplyAffineTransform(CGPoint point, CGAffineTransform transform);
/// The smallest upright rectangle around the transformed one.
CGRect CGRectApplyAffineTransform(CGRect rect, CGAffineTransform transform);
