#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "host/home_furniture.h"
#include "host/icon_view.h"

namespace host {

/// All of the home screen that a finger can move: pages of icons, side by side, page dots and dock.
///
/// A tap on an icon is reported; a finger that wanders sideways over the pages pulls them along.
class IconPager : public UIView {
  OBJC_CLASS(SBIconScrollView, UIView)
 public:
  IconPager(const HomeLayout& layout, std::function<void(IconView&)> tapped);
  /// After construction: fills pages and dock. Each takes its icons in the order given.
  void build(const std::vector<SBApplication*>& onPages, const std::vector<SBApplication*>& inDock);

  IconView* iconViewOf(const SBApplication& application) const;  ///< Null when it has none.
  /// Whether the icon can be seen without turning pages.
  bool isInView(const IconView& icon) const;
  /// The page that the icon lies on; for one of the dock, the page in view.
  int pageOf(const IconView& icon) const;

  /// Turns to the page and runs `completion` once it lies still; at once when nothing has to move.
  void showPage(int page, std::function<void()> completion = {});
  bool isTurning() const { return turning_; }
  void settle();  ///< Ends a turning of pages at once, with its completion.

  void touchesBegan(const UITouchSet& touches, UIEvent* event) override;
  void touchesMoved(const UITouchSet& touches, UIEvent* event) override;
  void touchesEnded(const UITouchSet& touches, UIEvent* event) override;
  void touchesCancelled(const UITouchSet& touches, UIEvent* event) override;

 private:
  /// A finger on its way over the home screen.
  struct Drag {
    std::shared_ptr<UITouch> touch;
    CGPoint start;  // In this view.
    CFTimeInterval startTime;
    CGFloat startOffset;
    std::shared_ptr<UIView> pressed;  // The icon under it, while it may still be a tap; else null.
    bool isPulling;
  };

  int pageCount() const { return static_cast<int>(pages_.size()); }
  CGFloat offsetOf(int page) const { return -layout_.screen.width * static_cast<CGFloat>(page); }
  CGFloat offset() const { return strip_->frame().origin.x; }
  void setOffset(CGFloat x);
  void pull(CGFloat distance);
  void release(CGFloat distance, CFTimeInterval seconds);
  void forgetPress();
  bool isTracking(const UITouchSet& touches) const;
  IconView* pressedIcon() const;

  HomeLayout layout_;
  std::function<void(IconView&)> tapped_;
  std::shared_ptr<UIView> strip_;  // Holds the pages; moves sideways.
  std::vector<std::shared_ptr<UIView>> pages_;
  std::shared_ptr<DockView> dock_;
  std::shared_ptr<PageDots> dots_;
  std::vector<std::shared_ptr<IconView>> icons_;
  int page_ = 0;
  bool turning_ = false;
  unsigned turnCount_ = 0;  // Which turning a completion belongs to.
  std::function<void()> afterTurning_;
  std::unique_ptr<Drag> drag_;  // Null while no finger is followed.
};

}  // namespace host
