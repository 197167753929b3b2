#include "platform/uikit/ui_view.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory_resource>
#include <stdexcept>
#include <vector>

#include "platform/uikit/ui_image.h"
#include "platform/uikit/ui_window.h"

namespace {

/// Below this a view is as good as not there: touches go to what shines through.
constexpr CGFloat leastTouchableAlpha = 0.01f;

CGAffineTransform transformToSuperview(const UIView& view) {
  return CALayer::transformToSuperlayer(view.layer().model());
}

CGPoint convertPointFromSuperview(const UIView& view, CGPoint point) {
  return CGPointApplyAffineTransform(point, CGAffineTransformInvert(transformToSuperview(view)));
}

}  // namespace

UIView::UIView(CGRect frame) : layer_(std::make_shared<CALayer>()) {
  // Before the layer knows its view: a view made inside an animation block stands at once.
  layer_->setFrame(frame);
  layer_->setDelegate(this);
}

UIView::~UIView() {
  layer_->setDelegate(nullptr);
  for (const auto& subview : subviews_) {
    subview->superview_ = nullptr;
    subview->layer_->removeFromSuperlayer();
  }
}

void UIView::setFrame(CGRect frame) {
  const CGSize before = bounds().size;
  layer_->setFrame(frame);
  if (bounds().size != before) contentMayChange();
}

void UIView::setBounds(CGRect bounds) {
  const CGSize before = layer_->bounds().size;
  layer_->setBounds(bounds);
  if (bounds.size != before) contentMayChange();
}

void UIView::setBackgroundColor(std::optional<UIColor> color) {
  backgroundColor_ = std::move(color);
  const auto picture = backgroundColor_ ? backgroundColor_->patternImage() : nullptr;
  if (picture) {
    layer_->setBackgroundPattern(CAPattern{picture->uprightCGImage(), picture->scale()});
  } else {
    layer_->setBackgroundPattern(std::nullopt);
  }
  layer_->setBackgroundColor(backgroundColor_ && !picture ? std::optional(backgroundColor_->cgColor())
                                                          : std::nullopt);
}

UIWindow* UIView::window() const {
  const UIView* root = this;
  while (root->superview_) root = root->superview_;
  return const_cast<UIWindow*>(dynamic_cast<const UIWindow*>(root));
}

bool UIView::isDescendantOf(const UIView& other) const {
  const UIView* view = this;
  while (view && view != &other) view = view->superview_;
  return view != nullptr;
}

void UIView::addSubview(const std::shared_ptr<UIView>& view) {
  if (!view) return;
  if (view->superview_ == this) return bringSubviewToFront(*view);
  if (isDescendantOf(*view)) throw std::invalid_argument("a view cannot become a subview of itself");
  const auto added = view;  // The argument may lie in the list that the view is about to leave.
  const UIWindow* before = added->window();
  added->leaveSuperview();
  subviews_.push_back(added);
  added->superview_ = this;
  layer_->addSublayer(added->layer_);
  added->tellDidMoveToWindow(before);
}

void UIView::bringSubviewToFront(UIView& view) {
  if (view.superview_ != this) return;
  auto place = placeOf(view);
  std::rotate(place, place + 1, subviews_.end());
  layer_->addSublayer(view.layer_);
}

void UIView::sendSubviewToBack(UIView& view) {
  if (view.superview_ != this) return;
  auto place = placeOf(view);
  std::rotate(subviews_.begin(), place, place + 1);
  layer_->insertSublayer(view.layer_, 0);
}

void UIView::removeFromSuperview() {
  if (!superview_) return;
  const UIWindow* before = window();
  leaveSuperview()->tellDidMoveToWindow(before);
}

std::vector<std::shared_ptr<UIView>>::iterator UIView::placeOf(const UIView& subview) {
  return std::find_if(subviews_.begin(), subviews_.end(),
                      [&subview](const auto& candidate) { return candidate.get() == &subview; });
}

std::shared_ptr<UIView> UIView::leaveSuperview() {
  if (!superview_) return nullptr;
  auto place = superview_->placeOf(*this);
  auto self = *place;
  superview_->subviews_.erase(place);
  superview_ = nullptr;
  layer_->removeFromSuperlayer();
  return self;
}

void UIView::tellDidMoveToWindow(const UIWindow* before) {
  if (window() == before) return;
  didMoveToWindow();
  const auto told = subviews_;  // A view that is told may rearrange the hierarchy.
  for (const auto& subview : told) subview->tellDidMoveToWindow(before);
}

UIView* UIView::hitTest(CGPoint point, UIEvent* event) {
  const bool takesTouches = !hidden() && userInteractionEnabled_ && alpha() >= leastTouchableAlpha &&
                            CGAffineTransformIsInvertible(transformToSuperview(*this));
  if (!takesTouches || !pointInside(point, event)) return nullptr;
  // A copy, for a hit test may rearrange the hierarchy; on the stack, for each move of a finger makes some.
  constexpr std::size_t few = 32;
  std::array<std::byte, few * sizeof(std::shared_ptr<UIView>)> room;
  std::pmr::monotonic_buffer_resource memory(room.data(), room.size());
  const std::pmr::vector<std::shared_ptr<UIView>> candidates(subviews_.begin(), subviews_.end(), &memory);
  for (auto candidate = candidates.rbegin(); candidate != candidates.rend(); ++candidate) {
    UIView& subview = **candidate;
    if (UIView* hit = subview.hitTest(convertPointFromSuperview(subview, point), event)) return hit;
  }
  return this;
}

bool UIView::pointInside(CGPoint point, UIEvent*) const { return CGRectContainsPoint(bounds(), point); }

CGPoint UIView::convertPointToScreen(CGPoint point) const {
  for (const UIView* view = this; view; view = view->superview_) {
    point = CGPointApplyAffineTransform(point, transformToSuperview(*view));
  }
  return point;
}

CGPoint UIView::convertPointFromScreen(CGPoint point) const {
  return convertPointFromSuperview(*this, superview_ ? superview_->convertPointFromScreen(point) : point);
}
