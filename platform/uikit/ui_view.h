#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/coregraphics/cg_affine_transform.h"
#include "platform/quartzcore/ca_layer.h"
#include "platform/uikit/ui_color.h"
#include "platform/uikit/ui_responder.h"

class UIWindow;

enum class UIViewAnimationCurve { EaseInOut, EaseIn, EaseOut, Linear };

/// Which margins and sizes give way when the superview is resized. Carried, not acted upon: nothing here
/// resizes a superview under its subviews' feet.
enum UIViewAutoresizing : unsigned {
  UIViewAutoresizingNone = 0,
  UIViewAutoresizingFlexibleLeftMargin = 1,
};

/// A rectangle on the screen with subviews of its own. Geometry is kept in its layer: bounds, centre and
/// transform; the frame is derived. Points, in the superview's coordinates (for a window: the screen's).
class UIView : public UIResponder, public CALayerDelegate {
  OBJC_CLASS(UIView, UIResponder)
 public:
  UIView() : UIView(CGRectZero) {}
  explicit UIView(CGRect frame);
  ~UIView() override;

  CALayer& layer() const { return *layer_; }

  CGRect frame() const { return layer_->frame(); }
  void setFrame(CGRect frame);
  CGRect bounds() const { return layer_->bounds(); }
  void setBounds(CGRect bounds);
  CGPoint center() const { return layer_->position(); }
  void setCenter(CGPoint center) { layer_->setPosition(center); }
  CGAffineTransform transform() const { return CATransform3DGetAffineTransform(layer_->transform()); }
  void setTransform(CGAffineTransform transform) {
    layer_->setTransform(CATransform3DMakeAffineTransform(transform));
  }

  CGFloat alpha() const { return layer_->opacity(); }
  void setAlpha(CGFloat alpha) { layer_->setOpacity(alpha); }
  bool hidden() const { return layer_->hidden(); }
  virtual void setHidden(bool hidden) { layer_->setHidden(hidden); }
  const std::optional<UIColor>& backgroundColor() const { return backgroundColor_; }  ///< Nothing at first.
  void setBackgroundColor(std::optional<UIColor> color);
  bool userInteractionEnabled() const { return userInteractionEnabled_; }
  void setUserInteractionEnabled(bool enabled) { userInteractionEnabled_ = enabled; }
  unsigned autoresizingMask() const { return autoresizingMask_; }
  void setAutoresizingMask(unsigned mask) { autoresizingMask_ = mask; }
  int tag() const { return tag_; }
  void setTag(int tag) { tag_ = tag; }

  // Hierarchy, back to front. A superview owns its subviews.
  const std::vector<std::shared_ptr<UIView>>& subviews() const { return subviews_; }
  UIView* superview() const { return superview_; }
  UIWindow* window() const;                        ///< Null while outside of any.
  bool isDescendantOf(const UIView& other) const;  ///< A view is a descendant of itself.
  /// In front of all others, foreign sublayers included. A view that is already a subview moves to the front;
  /// null is ignored. Throws std::invalid_argument for the view itself and its ancestors.
  void addSubview(const std::shared_ptr<UIView>& view);
  void bringSubviewToFront(UIView& view);  ///< No subview of this one: nothing happens. So the next.
  void sendSubviewToBack(UIView& view);
  void removeFromSuperview();
  /// The view has come into a window, has left it, or changed it. (A window that ceases to exist tells
  /// nobody.)
  virtual void didMoveToWindow() {}

  /// The frontmost descendant that `point` (in this view's coordinates) falls on, or this view, or null.
  /// Skips what is hidden, takes no interaction, is nearly transparent or flattened; looks at model geometry
  /// only.
  virtual UIView* hitTest(CGPoint point, UIEvent* event);
  virtual bool pointInside(CGPoint point, UIEvent* event) const;

  /// Between this view's coordinates and the screen's.
  CGPoint convertPointToScreen(CGPoint point) const;
  CGPoint convertPointFromScreen(CGPoint point) const;

  UIResponder* nextResponder() const override { return superview_; }

  // Animation blocks.
  static void animateWithDuration(CFTimeInterval seconds, const std::function<void()>& animations,
                                  std::function<void()> completion = {});
  static void beginAnimations();
  static void setAnimationDuration(CFTimeInterval seconds);
  static void setAnimationCurve(UIViewAnimationCurve curve);
  static void commitAnimations();

  /// What subclasses draw themselves with, in bounds coordinates; drawn once and kept until setNeedsDisplay.
  void setNeedsDisplay() { layer_->setNeedsDisplay(); }

 protected:
  /// The size has changed: subclasses that keep something fitted to it put that right.
  virtual void contentMayChange() {}

 private:
  std::vector<std::shared_ptr<UIView>>::iterator placeOf(const UIView& subview);
  std::shared_ptr<UIView> leaveSuperview();  // Returns this view, alive.
  void tellDidMoveToWindow(const UIWindow* before);

  std::shared_ptr<CALayer> layer_;
  std::vector<std::shared_ptr<UIView>> subviews_;
  UIView* superview_ = nullptr;  // Owns this view.
  std::optional<UIColor> backgroundColor_;
  bool userInteractionEnabled_ = true;
  unsigned autoresizingMask_ = UIViewAutoresizingNone;
  int tag_ = 0;
};
