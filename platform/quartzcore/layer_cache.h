#pragma once

#include <utility>
#include <vector>

#include "platform/quartzcore/paint.h"

/// A value that costs something to make, and what it was made for. Internal to the renderer, as is the whole
/// header.
template <class Key, class Value>
class Kept {
 public:
  /// What make(key) returns: that of the last time, as long as the key is the same.
  template <class Make>
  const Value& get(Key key, Make make) {
    if (!value_ || !(key_ == key)) {
      value_ = make(std::as_const(key));
      key_ = std::move(key);
    }
    return value_;
  }

 private:
  Key key_{};
  Value value_{};
};

/// What the renderer keeps of a layer's looks from frame to frame.
struct LayerCache {
  struct ContentKey {
    std::uint64_t looksChangedAt = 0;
    CGRect bounds, area, contentBounds;
    cairo_matrix_t toPicture{};
    int width = 0, height = 0;  ///< Of the picture.
    CGFloat opacity = 0;
    bool operator==(const ContentKey&) const;
  };
  /// The layer's own content as a picture, for what is scaled, turned, rounded or shaded.
  Kept<ContentKey, CGImageRef> content;
  /// The shadow as a picture, at full opacity, where the layer's own mask cuts it.
  Kept<ContentKey, CGImageRef> maskedShadow;

  struct ShadowKey {
    DeviceBox rect;
    AxisScale sigma{0, 0};
    bool operator==(const ShadowKey&) const = default;
  };
  /// The shadow's mask, in pixels from near the corner of what throws it.
  Kept<ShadowKey, std::shared_ptr<const ShadowMask>> shadow;

  struct SubtreeKey {
    SubtreePaint what{};
    PixelBox box;
    bool operator==(const SubtreeKey&) const = default;
  };
  /// The layer with all that lies in it, painted plainly.
  Kept<SubtreeKey, CGImageRef> subtree;

  struct BlurKey {
    std::vector<Paint> paints;
    PixelBox box;
    BlurSigma sigma{0, 0};
    bool operator==(const BlurKey&) const = default;
  };
  /// What the blur filter makes of the layer and what lies in it.
  Kept<BlurKey, CGImageRef> blurred;
};
