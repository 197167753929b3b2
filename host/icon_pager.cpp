#include "host/icon_pager.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace host {
namespace {

constexpr CFTimeInterval turnSeconds = 0.25;
constexpr CGFloat tapSlop = 10;           // Points that a tapping finger may wander.
constexpr CGFloat turnShare = 0.25f;      // Of the width: pulled this far, the page turns.
constexpr CGFloat flickSpeed = 300;       // Points a second: this fast, it turns however short the way.
constexpr CGFloat edgeResistance = 0.4f;  // How far the first and last page follow beyond their ends.

}  // namespace

IconPager::IconPager(const HomeLayout& layout, std::function<void(IconView&)> tapped)
    : UIView({{0, 0}, layout.screen}), layout_(layout), tapped_(std::move(tapped)) {}

void IconPager::build(const std::vector<SBApplication*>& onPages, const std::vector<SBApplication*>& inDock) {
  const CGSize screen = layout_.screen;
  const int capacity = layout_.iconsOnPage();
  const int count = static_cast<int>(onPages.size());
  const int pages = std::max(1, (count + capacity - 1) / capacity);
  auto addIcon = [this](UIView& to, CGRect frame, SBApplication& application) {
    auto view = std::make_shared<IconView>(frame, application, layout_);
    view->build();
    to.addSubview(view);
    icons_.push_back(view);
  };

  strip_ = std::make_shared<UIView>(
      CGRectMake(0, 0, screen.width * static_cast<CGFloat>(pages), layout_.dockTop()));
  for (int page = 0; page < pages; ++page) {
    pages_.push_back(
        std::make_shared<UIView>(CGRectMake(-offsetOf(page), 0, screen.width, layout_.dockTop())));
    strip_->addSubview(pages_.back());
  }
  for (int i = 0; i < count; ++i)
    addIcon(*pages_[static_cast<std::size_t>(i / capacity)], layout_.iconFrame(i % capacity),
            *onPages[static_cast<std::size_t>(i)]);
  addSubview(strip_);

  const CGRect dotsFrame =
      CGRectMake(0, layout_.dockTop() - layout_.dotsHeight, screen.width, layout_.dotsHeight);
  dots_ = std::make_shared<PageDots>(dotsFrame, pages);
  addSubview(dots_);

  dock_ = std::make_shared<DockView>(CGRectMake(0, layout_.dockTop(), screen.width, layout_.dockHeight));
  const int docked = static_cast<int>(inDock.size());
  for (int i = 0; i < docked; ++i)
    addIcon(*dock_, layout_.dockIconFrame(i, docked), *inDock[static_cast<std::size_t>(i)]);
  addSubview(dock_);
}

// Icons and pages.

IconView* IconPager::iconViewOf(const SBApplication& application) const {
  for (const auto& view : icons_)
    if (view->icon().application() == &application) return view.get();
  return nullptr;
}

bool IconPager::isInView(const IconView& icon) const { return pageOf(icon) == page_; }

int IconPager::pageOf(const IconView& icon) const {
  for (int page = 0; page < pageCount(); ++page)
    if (icon.superview() == pages_[static_cast<std::size_t>(page)].get()) return page;
  return page_;
}

void IconPager::setOffset(CGFloat x) {
  CGRect frame = strip_->frame();
  frame.origin.x = x;
  strip_->setFrame(frame);
}

void IconPager::showPage(int page, std::function<void()> completion) {
  settle();
  page_ = std::clamp(page, 0, pageCount() - 1);
  dots_->setCurrent(page_);
  const CGFloat target = offsetOf(page_);
  if (offset() == target) {
    if (completion) completion();
    return;
  }
  turning_ = true;
  afterTurning_ = std::move(completion);
  const std::weak_ptr<NSObject> self = weak_from_this();
  const unsigned turn = ++turnCount_;
  UIView::animateWithDuration(
      turnSeconds, [this, target] { setOffset(target); },
      [this, self, turn] {
        const auto alive = self.lock();
        if (alive && turn == turnCount_) settle();
      });
}

void IconPager::settle() {
  turning_ = false;
  if (auto completion = std::exchange(afterTurning_, nullptr)) completion();
}

// Fingers.

bool IconPager::isTracking(const UITouchSet& touches) const {
  return drag_ && std::ranges::find(touches, drag_->touch) != touches.end();
}

IconView* IconPager::pressedIcon() const {
  return drag_ ? static_cast<IconView*>(drag_->pressed.get()) : nullptr;
}

void IconPager::forgetPress() {
  if (IconView* icon = pressedIcon()) icon->setHighlighted(false);
  drag_->pressed = nullptr;
}

void IconPager::touchesBegan(const UITouchSet& touches, UIEvent*) {
  if (drag_ || touches.empty()) return;
  const auto& touch = touches.front();
  drag_ = std::make_unique<Drag>(
      Drag{touch, touch->locationInView(this), touch->timestamp(), offset(), nullptr, false});
  for (const auto& icon : icons_)
    if (icon.get() == touch->view()) drag_->pressed = icon;
  if (IconView* icon = pressedIcon()) icon->setHighlighted(true);
}

void IconPager::touchesMoved(const UITouchSet& touches, UIEvent*) {
  if (!isTracking(touches)) return;
  const CGPoint place = drag_->touch->locationInView(this);
  const CGFloat distance = place.x - drag_->start.x;
  const bool startedOnPages = drag_->start.y < layout_.dockTop();
  if (!drag_->isPulling && startedOnPages && std::abs(distance) > tapSlop) {
    forgetPress();
    settle();
    drag_->isPulling = true;
  }
  if (drag_->isPulling) {
    pull(distance);
  } else if (IconView* icon = pressedIcon()) {
    icon->setHighlighted(icon->pointInside(drag_->touch->locationInView(icon), nullptr));
  }
}

void IconPager::touchesEnded(const UITouchSet& touches, UIEvent*) {
  if (!isTracking(touches)) return;
  IconView* icon = pressedIcon();
  const bool isTap = icon && icon->pointInside(drag_->touch->locationInView(icon), nullptr);
  forgetPress();
  const auto drag = std::move(drag_);
  if (drag->isPulling) {
    release(drag->touch->locationInView(this).x - drag->start.x, drag->touch->timestamp() - drag->startTime);
  } else if (isTap) {
    tapped_(*icon);
  }
}

void IconPager::touchesCancelled(const UITouchSet& touches, UIEvent*) {
  if (!isTracking(touches)) return;
  forgetPress();
  const auto drag = std::move(drag_);
  if (drag->isPulling) showPage(page_);
}

void IconPager::pull(CGFloat distance) {
  const CGFloat wanted = drag_->startOffset + distance;
  const CGFloat first = offsetOf(0), last = offsetOf(pageCount() - 1);
  const CGFloat allowed = std::clamp(wanted, last, first);
  setOffset(allowed + (wanted - allowed) * edgeResistance);
}

void IconPager::release(CGFloat distance, CFTimeInterval seconds) {
  const bool isFar = std::abs(distance) > layout_.screen.width * turnShare;
  const bool isFlick = std::abs(distance) > tapSlop && seconds > 0 &&
                       std::abs(distance) > flickSpeed * static_cast<CGFloat>(seconds);
  const int step = distance < 0 ? 1 : -1;
  showPage(isFar || isFlick ? page_ + step : page_);
}

}  // namespace host
