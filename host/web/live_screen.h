#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "host/last_drawing.h"
#include "host/web/wall_time.h"
#include "platform/coregraphics/cg_image.h"
#include "platform/foundation/ns_data.h"
#include "platform/foundation/run_loop.h"

namespace host {

/// The screen, as pictures for whoever watches: drawn only when it may have changed, 60 times a second or, in
/// step with touches, somewhat more often; encoded once, however many watch.
class LiveScreen {
 public:
  static constexpr double secondsPerFrame = 1.0 / 60;

  /// The picture last drawn, counted from 1; 0 before the first.
  std::uint32_t version() const { return version_; }
  /// That picture as JPEG.
  std::shared_ptr<const NSData> jpeg();

  /// The device's time when it was last drawn.
  CFTimeInterval timeDrawn() const { return drawn_.time(); }

  /// When it should be drawn next; nothing while it stays as it is. `timeRuns` says that the device's time
  /// goes on.
  std::optional<WallTime> nextDrawing(bool timeRuns) const;
  /// Whether it is time, and there may be more to see than the last drawing showed.
  bool shouldDraw(WallTime now) const;
  /// Somebody has touched the screen and waits for what comes of it: brings the next drawing forward, as far
  /// as the last one allows. So drawings fall in step with touches.
  void hurry();
  /// Draws; one that looks like the last makes no new version.
  void draw(WallTime now);

 private:
  CGImageRef picture_;
  std::shared_ptr<const NSData> jpeg_;  // Of the picture; null until somebody wants it.
  std::uint32_t version_ = 0;
  LastDrawing drawn_;
  WallTime lastDrawing_ = 0, nextDrawing_ = 0;
};

}  // namespace host
