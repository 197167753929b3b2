#pragma once

#include <functional>
#include <memory>

#include "platform/uikit/ui_label.h"

namespace host {

/// The track along which a knob is dragged to unlock.
class UnlockSlider : public UIView {
  OBJC_CLASS(SBSlideToUnlockView, UIView)
 public:
  /// `unlocked` runs when the knob has been let go at the right end.
  UnlockSlider(CGRect frame, std::function<void()> unlocked);
  void build();  ///< After construction: adds the text and the knob.

  bool drawsContent() const override { return true; }
  void drawLayer(CGContext& context) const override;

  void touchesBegan(const UITouchSet& touches, UIEvent* event) override;
  void touchesMoved(const UITouchSet& touches, UIEvent* event) override;
  void touchesEnded(const UITouchSet& touches, UIEvent* event) override;
  void touchesCancelled(const UITouchSet& touches, UIEvent* event) override;

 private:
  CGFloat travel() const;
  CGFloat knobOffset() const;
  void moveKnob(CGFloat offset);
  void springBack();

  std::function<void()> unlocked_;
  std::shared_ptr<UILabel> text_;
  std::shared_ptr<UIView> knob_;
  std::shared_ptr<UITouch> touch_;  // The finger on the knob; null when there is none.
  CGFloat grip_ = 0;                // How far right of the knob's left edge the finger holds it.
};

}  // namespace host
