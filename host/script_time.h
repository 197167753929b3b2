#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "host/frame_meter.h"
#include "host/recorder.h"
#include "platform/foundation/run_loop.h"

namespace host {

/// How time passes in a script: the run loop's virtual time, with a picture taken at each frame of a
/// recording, and at each that is measured.
class ScriptTime {
 public:
  /// `meter` outlives this object; null where nothing is measured.
  explicit ScriptTime(FrameMeter* meter = nullptr) : meter_(meter) {}

  CFTimeInterval now() const { return RunLoop::main().now(); }

  // Whatever lets time pass throws Failure when the process has been interrupted, within a frame of a
  // recording or of the meter.

  /// Runs what is due now; no time passes.
  void turn() { advanceTo(now()); }
  void advanceTo(CFTimeInterval time);
  void advanceBy(CFTimeInterval seconds) { advanceTo(now() + seconds); }
  /// Goes from one piece of scheduled work to the next while `wanted` holds, for `limit` seconds at most;
  /// stops early when nothing is left to run.
  void advanceWhile(const std::function<bool()>& wanted, CFTimeInterval limit);

  // One recording at a time; each throws Failure where it does not apply or the file cannot be written.
  void startRecording(const std::filesystem::path& file, CGFloat scale);
  void stopRecording();
  bool recording() const { return recorder_ != nullptr; }

 private:
  /// When the next picture is due; never where nobody takes any.
  CFTimeInterval nextFrame() const;
  void takeFramesDueBy(CFTimeInterval time);

  FrameMeter* meter_;
  std::unique_ptr<Recorder> recorder_;  // Exists while recording.
};

}  // namespace host
