#include "host/home_furniture.h"

#include "platform/coregraphics/cg_context.h"

namespace host {
namespace {

constexpr CGFloat dotDiameter = 6, dotPitch = 14;  // Points.
constexpr CGColor brightDot{1, 1, 1, 1};
constexpr CGColor dimDot{1, 1, 1, 0.35f};

constexpr CGFloat shelfEdge = 1;           // The bright line along the shelf's upper edge.
constexpr CGFloat shelfFaceShare = 0.55f;  // Where the shelf's upper half gives way to its front.
constexpr CGColor shelfEdgeColor{1, 1, 1, 0.45f};
constexpr CGColor shelfTop{1, 1, 1, 0.30f};
constexpr CGColor shelfFar{1, 1, 1, 0.14f};
constexpr CGColor shelfNear{0, 0, 0, 0.10f};
constexpr CGColor shelfBottom{0, 0, 0, 0.38f};

}  // namespace

void PageDots::setCurrent(int page) {
  current_ = page;
  setNeedsDisplay();
}

void PageDots::drawLayer(CGContext& context) const {
  const CGSize size = bounds().size;
  const CGFloat row = dotPitch * static_cast<CGFloat>(pages_ - 1) + dotDiameter;
  for (int page = 0; page < pages_; ++page) {
    const CGFloat left = (size.width - row) / 2 + dotPitch * static_cast<CGFloat>(page);
    const CGRect dot = CGRectMake(left, (size.height - dotDiameter) / 2, dotDiameter, dotDiameter);
    context.fill(dot, page == current_ ? brightDot : dimDot, dotDiameter / 2);
  }
}

void DockView::drawLayer(CGContext& context) const {
  const CGSize size = bounds().size;
  const CGFloat face = size.height * shelfFaceShare;
  context.fillGradient(CGRectMake(0, 0, size.width, face), shelfTop, shelfFar);
  context.fillGradient(CGRectMake(0, face, size.width, size.height - face), shelfNear, shelfBottom);
  context.fill(CGRectMake(0, 0, size.width, shelfEdge), shelfEdgeColor);
}

}  // namespace host
