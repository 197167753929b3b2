#pragma once

#include <memory>

#include "host/home_layout.h"
#include "platform/springboard/sb_application_icon.h"
#include "platform/uikit/ui_image_view.h"

namespace host {

/// An application's icon and name on the home screen. Takes touches, and leaves what they mean to the views
/// behind it.
class IconView : public UIView {
  OBJC_CLASS(SBIconView, UIView)
 public:
  IconView(CGRect frame, SBApplication& application, const HomeLayout& layout);
  void build();  ///< After construction: adds the picture and the name.

  SBApplicationIcon& icon() const { return *icon_; }
  /// Where its picture is, in the middle, on the screen.
  CGPoint pictureCenterOnScreen() const { return convertPointToScreen(picture_->center()); }
  /// Darkened as long as a finger presses it.
  void setHighlighted(bool highlighted);

 private:
  HomeLayout layout_;
  std::shared_ptr<SBApplicationIcon> icon_;
  std::shared_ptr<UIImageView> picture_;
};

}  // namespace host
