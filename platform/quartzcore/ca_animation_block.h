#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/foundation/run_loop.h"
#include "platform/quartzcore/ca_media_timing_function.h"

class CALayer;

/// One animation block: while it is open, changes of view-backed layers become animations that begin now and
/// share its duration and curve. Its completion runs once, on the run loop, after the last of them has ended
/// or was replaced; with nothing to animate, at the run loop's next turn.
class CAAnimationBlock : public std::enable_shared_from_this<CAAnimationBlock> {
 public:
  /// Opens a block inside the one that is open, if any.
  static void begin();
  /// Closes the innermost block; without one, does nothing.
  static void commit();
  /// The innermost open block, or null. Not owned by the caller.
  static CAAnimationBlock* current();

  /// Default 0.2 s. For later changes only.
  void setDuration(CFTimeInterval seconds) { duration_ = seconds; }
  void setTiming(CAMediaTimingFunction timing) { timing_ = timing; }
  void setCompletion(std::function<void()> completion) { completion_ = std::move(completion); }

  CFTimeInterval duration() const { return duration_; }
  CAMediaTimingFunction timing() const { return timing_; }

  /// Called by layers: an animation of this block has been added to `layer`, has been replaced, or has gone
  /// with its layer.
  void animationAdded(const std::shared_ptr<CALayer>& layer);
  void animationRemoved();

 private:
  void close();
  void end();
  void complete();
  void completeAtNextTurn();

  CFTimeInterval duration_ = 0.2;
  CAMediaTimingFunction timing_ = CAMediaTimingFunction::easeInEaseOut();
  std::function<void()> completion_;
  std::vector<std::weak_ptr<CALayer>> layers_;  // One entry an animation that was added.
  int running_ = 0;                             // Animations still on their layers.
  CFTimeInterval endTime_ = 0;                  // When the last one that was added has run its course.
  bool open_ = true;
  RunLoop::Token endToken_ = 0;
};
