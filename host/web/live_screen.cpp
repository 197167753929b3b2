#include "host/web/live_screen.h"

#include <algorithm>

#include "platform/coregraphics/image_codec.h"
#include "platform/quartzcore/screen_changes.h"
#include "platform/uikit/display.h"

namespace host {
namespace {

// Seconds between two drawings where touches bring them forward: barely below a frame. Drawings then fall in
// step with touches that come once a frame; drawing more often was measured to delay all of them.
constexpr double shortestFrame = 0.016;
constexpr CGFloat quality = 0.9f;

}  // namespace

std::shared_ptr<const NSData> LiveScreen::jpeg() {
  if (!jpeg_) jpeg_ = std::make_shared<const NSData>(encodeJpeg(picture_, quality, ChromaSubsampling::Never));
  return jpeg_;
}

bool LiveScreen::shouldDraw(WallTime now) const { return drawn_.isOutdated() && now >= nextDrawing_; }

std::optional<WallTime> LiveScreen::nextDrawing(bool timeRuns) const {
  const bool willChange = drawn_.isOutdated() || (anyAnimationRuns() && timeRuns);
  return willChange ? std::optional(nextDrawing_) : std::nullopt;
}

void LiveScreen::hurry() { nextDrawing_ = std::min(nextDrawing_, lastDrawing_ + shortestFrame); }

void LiveScreen::draw(WallTime now) {
  // On a grid, so that one late frame does not delay all that follow; after a rest the grid starts anew.
  lastDrawing_ = now;
  const bool isOnGrid = now - nextDrawing_ < secondsPerFrame;
  nextDrawing_ = (isOnGrid ? nextDrawing_ : now) + secondsPerFrame;
  drawn_.note();
  CGImageRef picture = UIGetScreenImage();
  if (picture_ && CGImage::samePixels(*picture_, *picture)) return;
  picture_ = std::move(picture);
  jpeg_ = nullptr;
  ++version_;
}

}  // namespace host
