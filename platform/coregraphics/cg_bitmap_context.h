#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/coregraphics/cg_image.h"

/// A context that draws into memory, its own or the caller's.
class CGBitmapContext {
 public:
  /// A context over `data`, which the caller owns and keeps alive as long as the context; with null data the
  /// context owns its (zeroed) memory. Null when the size is not positive, the format is not supported or the
  /// rows do not fit into `bytesPerRow`; and when its own memory would be beyond all measure.
  static std::unique_ptr<CGBitmapContext> create(std::uint8_t* data, int width, int height,
                                                 std::size_t bytesPerRow, CGPixelFormat format);

  /// Draws `image` scaled into `rect` (pixels, y downward, the picture upright); null draws nothing.
  void drawImage(const CGImageRef& image, CGRect rect);

  /// A picture of what has been drawn so far; a copy.
  CGImageRef createImage() const;

 private:
  CGBitmapContext() = default;
  std::vector<std::uint8_t> owned_;
  std::uint8_t* data_ = nullptr;  // Into owned_, or the caller's.
  int width_ = 0, height_ = 0;
  std::size_t bytesPerRow_ = 0;
  CGPixelFormat format_;
};
