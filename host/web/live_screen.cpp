#include "host/web/live_screen.h"

#include <algorithm>

#include "platform/coregraphics/image_codec.h"
#include "platform/quartzcore/ca_layer.h"
#include "platform/uikit/display.h"

namespace host {
namespace {

constexpr double secondsPerFrame = 1.0 / 60;
constexpr double shortestFrame = 0.010;
constexpr CGFloat quality = 0.9f;

}  // namespace

std::shared_ptr<const NSData> LiveScreen::jpeg() {
  if (!jpeg_) jpeg_ = std::make_shared<const NSData>(encodeJpeg(picture_, quality, ChromaSubsampling::Never));
  return jpeg_;
}

bool LiveScreen::mayHaveChanged() const {
  if (!picture_ || CALayer::changeCount() != changesDrawn_) return true;
  return CALayer::anyIsAnimating() && RunLoop::main().now() > timeDrawn_;
}

void LiveScreen::hurry() { nextDrawing_ = std::min(nextDrawing_, lastDrawing_ + shortestFrame); }

bool LiveScreen::draw(WallTime now) {
  // On a grid, so that one late frame does not delay all that follow; after a rest the grid starts anew.
  lastDrawing_ = now;
  const bool isOnGrid = now - nextDrawing_ < secondsPerFrame;
  nextDrawing_ = (isOnGrid ? nextDrawing_ : now) + secondsPerFrame;
  timeDrawn_ = RunLoop::main().now();
  changesDrawn_ = CALayer::changeCount();
  CGImageRef picture = UIGetScreenImage();
  if (picture_ && CGImage::samePixels(*picture_, *picture)) return false;
  picture_ = std::move(picture);
  jpeg_ = nullptr;
  ++version_;
  return true;
}

}  // namespace host
