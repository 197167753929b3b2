#pragma once

#include <memory>
#include <vector>

#include "platform/quartzcore/ca_layer.h"

class Scene;

/// Shows layer trees on a screen, frame after frame, drawing no more than what has changed since the last.
/// The pictures are those of paintPlainly(), within 2 of 255; but for
/// rare pixels where the roundings of several layers add up, and for edges that run across the pixels, where
/// the drawing library's own coverage depends on what it is clipped to.
class Compositor {
 public:
  Compositor();
  ~Compositor();

  /// The trees as they look at `time` on a black screen of `size` points at `scale` pixels a point. Opaque,
  /// in screen layout, its size in whole pixels; the very picture of the last call where nothing has changed
  /// since, and null where there is no picture of that size. No pointer is null.
  CGImageRef frame(const std::vector<const CALayer*>& backToFront, CGSize size, CGFloat scale,
                   CFTimeInterval time);

 private:
  using Buffer = std::shared_ptr<std::vector<std::uint8_t>>;
  void makeWritable(std::size_t bytes, bool keepsContents);

  std::unique_ptr<Scene> scene_;
  Buffer pixels_;       // Of the picture.
  Buffer spare_;        // Of an earlier picture; free once nobody looks at that any more.
  CGImageRef picture_;  // The last one; null while its pixels are not worth keeping.
};
