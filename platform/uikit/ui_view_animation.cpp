// Animation blocks as views offer them.

#include "platform/quartzcore/ca_animation_block.h"
#include "platform/uikit/ui_view.h"

namespace {

CAMediaTimingFunction timingOf(UIViewAnimationCurve curve) {
  switch (curve) {
    case UIViewAnimationCurve::EaseIn:
      return CAMediaTimingFunction::easeIn();
    case UIViewAnimationCurve::EaseOut:
      return CAMediaTimingFunction::easeOut();
    case UIViewAnimationCurve::Linear:
      return CAMediaTimingFunction::linear();
    case UIViewAnimationCurve::EaseInOut:
      break;
  }
  return CAMediaTimingFunction::easeInEaseOut();
}

/// Closes the block however its changes end.
struct OpenBlock {
  OpenBlock() { CAAnimationBlock::begin(); }
  OpenBlock(const OpenBlock&) = delete;
  OpenBlock& operator=(const OpenBlock&) = delete;
  ~OpenBlock() { CAAnimationBlock::commit(); }
};

}  // namespace

void UIView::animateWithDuration(CFTimeInterval seconds, const std::function<void()>& animations,
                                 std::function<void()> completion) {
  OpenBlock block;
  CAAnimationBlock::current()->setDuration(seconds);
  CAAnimationBlock::current()->setCompletion(std::move(completion));
  animations();
}

void UIView::beginAnimations() { CAAnimationBlock::begin(); }

void UIView::setAnimationDuration(CFTimeInterval seconds) {
  if (CAAnimationBlock* block = CAAnimationBlock::current()) block->setDuration(seconds);
}

void UIView::setAnimationCurve(UIViewAnimationCurve curve) {
  if (CAAnimationBlock* block = CAAnimationBlock::current()) block->setTiming(timingOf(curve));
}

void UIView::commitAnimations() { CAAnimationBlock::commit(); }
