#include "host/recorder.h"

#include <algorithm>
#include <cmath>
#include <exception>

#include "host/failure.h"
#include "host/machine_file.h"
#include "platform/coregraphics/cg_context.h"
#include "platform/uikit/display.h"

namespace host {
namespace {

constexpr double millisecondsPerSecond = 1000;

CGImageRef scaled(const CGImageRef& picture, CGFloat scale) {
  if (scale == 1) return picture;
  const auto pixels = [scale](int length) { return std::max(1.0f, std::round(CGFloat(length) * scale)); };
  const CGSize size = {pixels(picture->width()), pixels(picture->height())};
  CGContext context(size, 1);
  context.drawImage(picture, {{0, 0}, size});
  return context.createImage();
}

}  // namespace

Recorder::Recorder(std::filesystem::path file, CGFloat scale, CFTimeInterval now)
    : file_(std::move(file)), scale_(scale), start_(now) {
  MachineFile(file_,
              MachineFile::Existing::Kept);  // Says now what would go wrong at the end, and spoils nothing.
  takePicture(now);
}

void Recorder::takeFrame() {
  takePicture(nextFrame());
  ++frame_;
}

void Recorder::finish(CFTimeInterval now) {
  takePicture(now);
  // The last picture stands as long as any other, or nobody would see it.
  const int end = milliseconds(now + 1.0 / framesPerSecond);
  namingFile([&] { MachineFile(file_).write(animation_.finish(end)); });
}

void Recorder::takePicture(CFTimeInterval now) {
  namingFile([&] { animation_.show(scaled(UIGetScreenImage(), scale_), milliseconds(now)); });
}

void Recorder::namingFile(const std::function<void()>& work) const {
  try {
    work();
  } catch (const Failure&) {
    throw;
  } catch (const std::exception& error) {
    throw Failure(file_.string() + ": " + error.what());
  }
}

int Recorder::milliseconds(CFTimeInterval time) const {
  return int(std::lround((time - start_) * millisecondsPerSecond));
}

}  // namespace host
