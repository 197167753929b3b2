#pragma once

#include <initializer_list>
#include <memory>

#include "platform/uikit/ui_image_view.h"

namespace vistrel {

/// Messages to views that a style may do without: an absent view takes them without effect, and its frame is
/// zero.

inline CGRect frameOf(const std::shared_ptr<UIView>& view) { return view ? view->frame() : CGRectZero; }
inline CGSize sizeOf(const std::shared_ptr<UIView>& view) { return frameOf(view).size; }

inline void place(const std::shared_ptr<UIView>& view, CGRect frame) {
  if (view) view->setFrame(frame);
}
inline void place(const std::shared_ptr<UIView>& view, float x, float y, CGSize size) {
  place(view, {{x, y}, size});
}

inline void fade(const std::shared_ptr<UIView>& view, float alpha) {
  if (view) view->setAlpha(alpha);
}

inline void takeTouches(std::initializer_list<std::shared_ptr<UIView>> views, bool enabled) {
  for (const auto& view : views) {
    if (view) view->setUserInteractionEnabled(enabled);
  }
}

/// A layer scale about the view's centre, the same on both axes.
inline void scaleLayer(UIView& view, float scale) {
  view.layer().setTransform(CATransform3DMakeScale(scale, scale, 1));
}

/// The size in points of the picture that a view shows, whose pixels are the device's; zero without picture.
CGSize bandSize(const std::shared_ptr<UIImageView>& view);

}  // namespace vistrel
