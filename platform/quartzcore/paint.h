#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <variant>

#include "platform/quartzcore/pixel_box.h"
#include "platform/quartzcore/pixel_rows.h"
#include "platform/quartzcore/placed_layer.h"
#include "platform/quartzcore/shadow.h"

/// What the screen is painted with. Internal to the renderer.

inline constexpr std::uint8_t fullOpacity = 255;

/// A colour all over the box.
struct ColorPaint {
  Pixel color;
  bool operator==(const ColorPaint&) const = default;
};

/// A picture in screen layout, pixel by pixel, its corner at (left, top); no less than the box.
struct PicturePaint {
  CGImageRef picture;
  int left, top;
  std::uint8_t opacity;
  bool opaque;  ///< The picture; whatever its alpha says.
  bool operator==(const PicturePaint&) const = default;
};

/// A picture in screen layout, pixel by pixel, side by side with itself from (left, top) on in all
/// directions.
struct TilePaint {
  CGImageRef picture;
  int left, top;
  std::uint8_t opacity;
  bool opaque;  ///< The picture; whatever its alpha says.
  bool operator==(const TilePaint&) const = default;
};

/// A colour through a mask, the mask's origin at (left, top).
struct ShadowPaint {
  std::shared_ptr<const ShadowMask> mask;
  int left, top;
  Pixel color;
  bool operator==(const ShadowPaint&) const = default;
};

/// A layer with all that lies in it, painted plainly. To be painted only while the layer is known to live.
struct SubtreePaint {
  const CALayer* layer;
  Inherited inherited;
  std::uint64_t changedAt;                ///< The subtree.
  std::optional<CFTimeInterval> movedAt;  ///< The moment; nothing where nothing of it moves.
  bool operator==(const SubtreePaint&) const = default;
};

/// One thing that is laid on the screen, as a value: equal ones leave equal pixels.
struct Paint {
  PixelBox box;      ///< What it can touch, inside of what it is clipped to.
  PixelBox covered;  ///< The part of the box where nothing shows through.
  std::variant<ColorPaint, PicturePaint, TilePaint, ShadowPaint, SubtreePaint> what;
  bool operator==(const Paint&) const = default;
};
