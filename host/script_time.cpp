#include "host/script_time.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "host/failure.h"
#include "host/interruption.h"

namespace host {

void ScriptTime::advanceTo(CFTimeInterval time) {
  stopIfInterrupted();
  RunLoop& loop = RunLoop::main();
  for (CFTimeInterval frame = nextFrame(); frame <= time; frame = nextFrame()) {
    loop.advanceTo(frame);
    takeFramesDueBy(frame);
    stopIfInterrupted();
  }
  loop.advanceTo(time);
}

CFTimeInterval ScriptTime::nextFrame() const {
  constexpr CFTimeInterval never = std::numeric_limits<CFTimeInterval>::infinity();
  return std::min(meter_ ? meter_->nextFrame() : never, recorder_ ? recorder_->nextFrame() : never);
}

void ScriptTime::takeFramesDueBy(CFTimeInterval time) {
  // The meter first: once the recorder has drawn the same frame, nothing is left to measure.
  if (meter_ && meter_->nextFrame() <= time) meter_->takeFrame();
  if (recorder_ && recorder_->nextFrame() <= time) recorder_->takeFrame();
}

void ScriptTime::advanceWhile(const std::function<bool()>& wanted, CFTimeInterval limit) {
  const RunLoop& loop = RunLoop::main();
  const CFTimeInterval end = now() + limit;
  while (wanted() && !loop.idle() && now() < end) {
    advanceTo(std::clamp(loop.nextDue(), now(), end));
  }
}

void ScriptTime::startRecording(const std::filesystem::path& file, CGFloat scale) {
  if (recorder_) throw Failure("a recording is under way already");
  recorder_ = std::make_unique<Recorder>(file, scale, now());
}

void ScriptTime::stopRecording() {
  if (!recorder_) throw Failure("no recording is under way");
  // Over, whether or not its file can be written.
  const auto recorder = std::move(recorder_);
  recorder->finish(now());
}

}  // namespace host
