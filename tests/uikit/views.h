#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/uikit/display.h"
#include "platform/uikit/touch_dispatcher.h"
#include "platform/uikit/ui_window.h"

// What the tests of views share.

inline constexpr CGSize screenSize{320, 480};

inline std::shared_ptr<UIWindow> visibleWindow(CGRect frame = {{0, 0}, screenSize}, CGFloat level = 0) {
  auto window = std::make_shared<UIWindow>(frame);
  window->setWindowLevel(level);
  window->setHidden(false);
  return window;
}

template <class View = UIView>
std::shared_ptr<View> addView(UIView& superview, CGRect frame) {
  auto view = std::make_shared<View>(frame);
  superview.addSubview(view);
  return view;
}

/// Writes down what reaches it, with the phases of all of the event's touches (Began, Moved, Stationary,
/// Ended, Cancelled) in the order of their fingers; passes beginnings on.
class Recorder : public UIView {
 public:
  using UIView::UIView;

  std::vector<std::string> log;
  std::vector<CGPoint> locations;

  void didMoveToWindow() override { log.push_back(window() ? "in" : "out"); }
  void touchesBegan(const UITouchSet& touches, UIEvent* event) override {
    record("began", touches, event);
    UIView::touchesBegan(touches, event);
  }
  void touchesMoved(const UITouchSet& touches, UIEvent* event) override { record("moved", touches, event); }
  void touchesEnded(const UITouchSet& touches, UIEvent* event) override { record("ended", touches, event); }
  void touchesCancelled(const UITouchSet& touches, UIEvent* event) override {
    record("cancelled", touches, event);
  }

 private:
  void record(const char* what, const UITouchSet& touches, UIEvent* event) {
    EXPECT_EQ(touches.size(), 1u);
    std::string entry = what + std::string(" ");
    for (const auto& touch : event->allTouches()) entry += "BMSEC"[int(touch->phase())];
    log.push_back(entry);
    locations.push_back(touches.front()->locationInView(this));
  }
};
