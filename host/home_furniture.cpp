#include "host/home_furniture.h"

#include "platform/coregraphics/cg_context.h"

namespace host {

namespace {

constexpr CGFloat kDotDiameter = 6, kDotPitch = 14;  // Points.
constexpr CGColor kBrightDot{1, 1, 1, 1};
constexpr CGColor kDimDot{1, 1, 1, 0.35f};

constexpr CGFloat kShelfEdge = 1;           // The bright line along the shelf's upper edge.
constexpr CGFloat kShelfFaceShare = 0.55f;  // Where the shelf's upper half gives way to its front.
constexpr CGColor kShelfEdgeColor{1, 1, 1, 0.45f};
constexpr CGColor kShelfTop{1, 1, 1, 0.30f};
constexpr CGColor kShelfFar{1, 1, 1, 0.14f};
constexpr CGColor kShelfNear{0, 0, 0, 0.10f};
constexpr CGColor kShelfBottom{0, 0, 0, 0.38f};

}  // namespace

void PageDots::setCurrent(int page) {
  current_ = page;
  setNeedsDisplay();
}

void PageDots::drawLayer(CGContext& context) const {
  const CGSize size = bounds().size;
  const CGFloat row = kDotPitch * static_cast<CGFloat>(pages_ - 1) + kDotDiameter;
  for (int page = 0; page < pages_; ++page) {
    const CGFloat left = (size.width - row) / 2 + kDotPitch * static_cast<CGFloat>(page);
    const CGRect dot = CGRectMake(left, (size.height - kDotDiameter) / 2, kDotDiameter, kDotDiameter);
    context.fill(dot, page == current_ ? kBrightDot : kDimDot, kDotDiameter / 2);
  }
}

void DockView::drawLayer(CGContext& context) const {
  const CGSize size = bounds().size;
  const CGFloat face = size.height * kShelfFaceShare;
  context.fillGradient(CGRectMake(0, 0, size.width, face), kShelfTop, kShelfFar);
  context.fillGradient(CGRectMake(0, face, size.width, size.height - face), kShelfNear, kShelfBottom);
  context.fill(CGRectMake(0, 0, size.width, kShelfEdge), kShelfEdgeColor);
}

}  // namespace host
