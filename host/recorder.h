#pragma once

#include <filesystem>
#include <functional>

#include "host/webp_animation.h"
#include "platform/foundation/run_loop.h"

namespace host {

/// A recording of the screen under way: a picture at its start, one every frame, one at its end.
class Recorder {
 public:
  static constexpr int framesPerSecond = 30;

  /// Makes the file and takes the first picture. `scale` is the recording's size against the screen's pixels.
  /// Throws Failure when the file cannot be made.
  Recorder(std::filesystem::path file, CGFloat scale, CFTimeInterval now);

  /// When the next picture is due: counted from the start, so that frames do not drift.
  CFTimeInterval nextFrame() const { return start_ + CFTimeInterval(frame_) / framesPerSecond; }
  /// Takes the picture that is due.
  void takeFrame();

  /// Takes the last picture and writes the file. Throws Failure when that fails.
  void finish(CFTimeInterval now);

 private:
  void takePicture(CFTimeInterval now);
  /// Turns what the encoder throws into a Failure of this file.
  void namingFile(const std::function<void()>& work) const;
  int milliseconds(CFTimeInterval time) const;

  std::filesystem::path file_;
  CGFloat scale_;
  CFTimeInterval start_;
  long frame_ = 1;  // The number of the next one.
  WebpAnimation animation_;
};

}  // namespace host
