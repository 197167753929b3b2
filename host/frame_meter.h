#pragma once

#include <string>
#include <vector>

#include "host/last_drawing.h"
#include "platform/foundation/run_loop.h"

namespace host {

/// What became of the frames of a run.
struct FrameStatistics {
  std::vector<double> renderTimes;  ///< Milliseconds of real time, one for each frame drawn.
  long skipped = 0;                 ///< Frames at which there was nothing new to draw.
};

/// A few lines for people to read.
std::string reportOf(const FrameStatistics& statistics);

/// Draws the screen as a display would that looks at it every frame of the run loop's time, and measures how
/// long that takes in real time. The device does not notice.
class FrameMeter {
 public:
  static constexpr int framesPerSecond = 60;

  /// The first frame is at `start`.
  explicit FrameMeter(CFTimeInterval start) : start_(start) {}

  /// Counted from the start, so that frames do not drift.
  CFTimeInterval nextFrame() const { return start_ + CFTimeInterval(frame_) / framesPerSecond; }
  /// Draws the frame that is due, or skips it.
  void takeFrame();

  const FrameStatistics& statistics() const { return statistics_; }

 private:
  CFTimeInterval start_;
  long frame_ = 0;  // The number of the next one.
  LastDrawing lastDrawing_;
  FrameStatistics statistics_;
};

}  // namespace host
