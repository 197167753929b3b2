#include "host/unlock_slider.h"

#include <algorithm>

#include "platform/coregraphics/cg_context.h"

namespace host {

namespace {

constexpr CGFloat kKnobWidth = 68, kKnobHeight = 46;  // Points.
constexpr CGFloat kRim = 3;                           // Between the track and the knob.
constexpr CGFloat kTrackRadius = 12, kKnobRadius = 10;
constexpr CGFloat kFontSize = 22;
constexpr CGFloat kAtEnd = 2;  // This near, the knob counts as being at the right end.
constexpr CFTimeInterval kSpringBackSeconds = 0.2;
constexpr const char* kText = "slide to unlock";

constexpr CGColor kTrackTop{0, 0, 0, 0.75f};
constexpr CGColor kTrackBottom{0.16f, 0.16f, 0.17f, 0.75f};
constexpr CGColor kKnobTop{0.98f, 0.98f, 0.98f, 1};
constexpr CGColor kKnobBottom{0.68f, 0.70f, 0.73f, 1};
constexpr CGColor kArrow{0.42f, 0.44f, 0.48f, 1};

/// The knob, with an arrow to the right.
class Knob : public UIView {
  OBJC_CLASS(SBSlideToUnlockKnobView, UIView)
 public:
  explicit Knob(CGRect frame) : UIView(frame) { setUserInteractionEnabled(false); }
  bool drawsContent() const override { return true; }
  void drawLayer(CGContext& context) const override {
    constexpr CGFloat kShaftLength = 16, kShaftWidth = 8, kHeadLength = 13;
    const CGSize size = bounds().size;
    context.fillGradient({{0, 0}, size}, kKnobTop, kKnobBottom, kKnobRadius);
    const CGFloat left = (size.width - kShaftLength - kHeadLength) / 2, middle = size.height / 2;
    context.fill(CGRectMake(left, middle - kShaftWidth / 2, kShaftLength, kShaftWidth), kArrow);
    // The head, in columns that shrink towards its tip.
    for (CGFloat x = 0; x < kHeadLength; x += kArrowStep) {
      const CGFloat half = kHeadLength - x;
      context.fill(CGRectMake(left + kShaftLength + x, middle - half, kArrowStep, 2 * half), kArrow);
    }
  }

 private:
  static constexpr CGFloat kArrowStep = 0.5f;
};

}  // namespace

UnlockSlider::UnlockSlider(CGRect frame, std::function<void()> unlocked)
    : UIView(frame), unlocked_(std::move(unlocked)) {}

void UnlockSlider::build() {
  const CGSize size = bounds().size;
  text_ = std::make_shared<UILabel>(CGRectMake(kKnobWidth, 0, size.width - kKnobWidth, size.height));
  text_->setText(kText);
  text_->setTextColor(UIColor::colorWithWhite(0.85f, 1));
  text_->setTextAlignment(UITextAlignment::Center);
  text_->setFontSize(kFontSize);
  addSubview(text_);
  knob_ = std::make_shared<Knob>(CGRectMake(kRim, kRim, kKnobWidth, kKnobHeight));
  addSubview(knob_);
}

void UnlockSlider::drawLayer(CGContext& context) const {
  context.fillGradient({{0, 0}, bounds().size}, kTrackTop, kTrackBottom, kTrackRadius);
}

CGFloat UnlockSlider::travel() const { return bounds().size.width - kKnobWidth - 2 * kRim; }

CGFloat UnlockSlider::knobOffset() const { return knob_->frame().origin.x - kRim; }

void UnlockSlider::moveKnob(CGFloat offset) {
  CGRect frame = knob_->frame();
  frame.origin.x = kRim + offset;
  knob_->setFrame(frame);
  text_->setAlpha(1 - std::min(1.0f, 2 * offset / travel()));  // Gone half way.
}

void UnlockSlider::springBack() {
  touch_ = nullptr;
  UIView::animateWithDuration(kSpringBackSeconds, [this] { moveKnob(0); });
}

void UnlockSlider::touchesBegan(const UITouchSet& touches, UIEvent*) {
  if (touch_ || touches.empty()) return;
  const CGPoint place = touches.front()->locationInView(this);
  if (!CGRectContainsPoint(knob_->frame(), place)) return;
  touch_ = touches.front();
  grip_ = place.x - knobOffset();
}

void UnlockSlider::touchesMoved(const UITouchSet& touches, UIEvent*) {
  if (!touch_ || std::ranges::find(touches, touch_) == touches.end()) return;
  moveKnob(std::clamp(touch_->locationInView(this).x - grip_, 0.0f, travel()));
}

void UnlockSlider::touchesEnded(const UITouchSet& touches, UIEvent* event) {
  if (!touch_ || std::ranges::find(touches, touch_) == touches.end()) return;
  touchesMoved(touches, event);
  if (knobOffset() < travel() - kAtEnd) return springBack();
  touch_ = nullptr;
  unlocked_();
}

void UnlockSlider::touchesCancelled(const UITouchSet& touches, UIEvent*) {
  if (touch_ && std::ranges::find(touches, touch_) != touches.end()) springBack();
}

}  // namespace host
