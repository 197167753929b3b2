#include "host/unlock_slider.h"

#include <algorithm>

#include "platform/coregraphics/cg_context.h"

namespace host {
namespace {

constexpr CGFloat knobWidth = 68, knobHeight = 46;  // Points.
constexpr CGFloat rim = 3;                          // Between the track and the knob.
constexpr CGFloat trackRadius = 12, knobRadius = 10;
constexpr CGFloat fontSize = 22;
constexpr CGFloat atEnd = 2;  // This near, the knob counts as being at the right end.
constexpr CFTimeInterval springBackSeconds = 0.2;
constexpr const char* invitation = "slide to unlock";

constexpr CGColor trackTop{0, 0, 0, 0.75f};
constexpr CGColor trackBottom{0.16f, 0.16f, 0.17f, 0.75f};
constexpr CGColor knobTop{0.98f, 0.98f, 0.98f, 1};
constexpr CGColor knobBottom{0.68f, 0.70f, 0.73f, 1};
constexpr CGColor arrow{0.42f, 0.44f, 0.48f, 1};

/// The knob, with an arrow to the right.
class Knob : public UIView {
  OBJC_CLASS(SBSlideToUnlockKnobView, UIView)
 public:
  explicit Knob(CGRect frame) : UIView(frame) { setUserInteractionEnabled(false); }
  bool drawsContent() const override { return true; }
  void drawLayer(CGContext& context) const override {
    constexpr CGFloat shaftLength = 16, shaftWidth = 8, headLength = 13;
    const CGSize size = bounds().size;
    context.fillGradient({{0, 0}, size}, knobTop, knobBottom, knobRadius);
    const CGFloat left = (size.width - shaftLength - headLength) / 2, middle = size.height / 2;
    context.fill(CGRectMake(left, middle - shaftWidth / 2, shaftLength, shaftWidth), arrow);
    // The head, in columns that shrink towards its tip.
    for (CGFloat x = 0; x < headLength; x += arrowStep) {
      const CGFloat half = headLength - x;
      context.fill(CGRectMake(left + shaftLength + x, middle - half, arrowStep, 2 * half), arrow);
    }
  }

 private:
  static constexpr CGFloat arrowStep = 0.5f;
};

}  // namespace

UnlockSlider::UnlockSlider(CGRect frame, std::function<void()> unlocked)
    : UIView(frame), unlocked_(std::move(unlocked)) {}

void UnlockSlider::build() {
  const CGSize size = bounds().size;
  text_ = std::make_shared<UILabel>(CGRectMake(knobWidth, 0, size.width - knobWidth, size.height));
  text_->setText(invitation);
  text_->setTextColor(UIColor::colorWithWhite(0.85f, 1));
  text_->setTextAlignment(UITextAlignment::Center);
  text_->setFontSize(fontSize);
  addSubview(text_);
  knob_ = std::make_shared<Knob>(CGRectMake(rim, rim, knobWidth, knobHeight));
  addSubview(knob_);
}

void UnlockSlider::drawLayer(CGContext& context) const {
  context.fillGradient({{0, 0}, bounds().size}, trackTop, trackBottom, trackRadius);
}

CGFloat UnlockSlider::travel() const { return bounds().size.width - knobWidth - 2 * rim; }

CGFloat UnlockSlider::knobOffset() const { return knob_->frame().origin.x - rim; }

void UnlockSlider::moveKnob(CGFloat offset) {
  CGRect frame = knob_->frame();
  frame.origin.x = rim + offset;
  knob_->setFrame(frame);
  text_->setAlpha(1 - std::min(1.0f, 2 * offset / travel()));  // Gone half way.
}

void UnlockSlider::springBack() {
  touch_ = nullptr;
  UIView::animateWithDuration(springBackSeconds, [this] { moveKnob(0); });
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
  if (knobOffset() < travel() - atEnd) return springBack();
  touch_ = nullptr;
  unlocked_();
}

void UnlockSlider::touchesCancelled(const UITouchSet& touches, UIEvent*) {
  if (touch_ && std::ranges::find(touches, touch_) != touches.end()) springBack();
}

}  // namespace host
