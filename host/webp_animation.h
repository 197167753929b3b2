#pragma once

#include <memory>

#include "platform/coregraphics/cg_image.h"
#include "platform/foundation/ns_data.h"

struct WebPAnimEncoder;

namespace host {

/// Pictures, each with the time at which it appears, becoming an animated WebP. A picture like the one before
/// it only prolongs that one.
class WebpAnimation {
 public:
  WebpAnimation();
  ~WebpAnimation();

  /// Shows `picture` from `milliseconds` after the animation's start on; times do not go back. All pictures
  /// are as large as the first one. At one and the same time the later picture replaces the earlier one.
  void show(CGImageRef picture, int milliseconds);

  /// The file's bytes; the last picture stands until `milliseconds`. Nothing can be shown after that. Throws
  /// std::runtime_error when the encoder gives up, as out of memory it does.
  NSData finish(int milliseconds);

 private:
  void encodeCurrent();
  [[noreturn]] void fail() const;

  struct EncoderDeleter {
    void operator()(WebPAnimEncoder* encoder) const;
  };
  std::unique_ptr<WebPAnimEncoder, EncoderDeleter> encoder_;  // Made for the first picture's size.
  CGImageRef current_;  // Shown last, not encoded yet: how long it stands is not known. Null at first.
  int currentSince_ = 0;
};

}  // namespace host
