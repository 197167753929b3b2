#pragma once

#include <vector>

#include "platform/quartzcore/paint.h"

/// What the renderer keeps of a layer's looks from frame to frame: each piece with what it was made for, and
/// made anew when that has changed. Internal to the renderer.
struct LayerCache {
  /// The layer's own content as a picture, for what is scaled, turned, rounded or shaded.
  struct ContentKey {
    std::uint64_t looksChangedAt = 0;
    CGRect bounds, area, contentBounds;
    cairo_matrix_t toPicture{};
    int width = 0, height = 0;  ///< Of the picture.
    CGFloat opacity = 0;
    bool operator==(const ContentKey&) const;
  };
  ContentKey contentKey;
  CGImageRef content;
  /// The shadow as a picture, at full opacity, where the layer's own mask cuts it.
  ContentKey maskedShadowKey;
  CGImageRef maskedShadow;

  /// The shadow's mask, in pixels from near the corner of what throws it.
  struct ShadowKey {
    DeviceBox rect;
    AxisScale sigma{0, 0};
    bool operator==(const ShadowKey&) const = default;
  };
  ShadowKey shadowKey;
  std::shared_ptr<const ShadowMask> shadow;

  /// The layer with all that lies in it, painted plainly.
  struct SubtreeKey {
    SubtreePaint what{};
    PixelBox box;
    bool operator==(const SubtreeKey&) const = default;
  };
  SubtreeKey subtreeKey;
  CGImageRef subtree;

  /// What the blur filter makes of the layer and what lies in it.
  struct BlurKey {
    std::vector<Paint> paints;
    PixelBox box;
    BlurSigma sigma{0, 0};
    bool operator==(const BlurKey&) const = default;
  };
  BlurKey blurKey;
  CGImageRef blurred;
};
