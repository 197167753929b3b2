#include "host/script_time.h"

#include <algorithm>
#include <utility>

#include "host/failure.h"
#include "host/interruption.h"

namespace host {

void ScriptTime::advanceTo(CFTimeInterval time) {
  stopIfInterrupted();
  RunLoop& loop = RunLoop::main();
  while (recorder_ && recorder_->nextFrame() <= time) {
    loop.advanceTo(recorder_->nextFrame());
    recorder_->takeFrame();
    stopIfInterrupted();
  }
  loop.advanceTo(time);
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
