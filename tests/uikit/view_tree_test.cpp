#include <functional>

#include "platform/uikit/ui_image.h"
#include "tests/uikit/views.h"

namespace {

/// A window with subviews a, b, c over a layer that is no view's, "-".
class ViewTree : public testing::Test {
 protected:
  ViewTree() {
    for (auto& view : {a, b, c}) window->addSubview(view);
    window->layer().insertSublayer(gradient, 0);
  }

  /// The window's subviews or sublayers, back to front.
  std::string names(const auto& children) const {
    std::string names;
    for (const auto& child : children) names += nameOf(*child);
    return names;
  }
  char nameOf(const UIView& view) const { return nameOf(view.layer()); }
  char nameOf(const CALayer& layer) const {
    return &layer == &a->layer() ? 'a' : &layer == &b->layer() ? 'b' : &layer == &c->layer() ? 'c' : '-';
  }

  std::shared_ptr<UIWindow> window = visibleWindow();
  std::shared_ptr<Recorder> a{new Recorder}, b{new Recorder}, c{new Recorder};
  std::shared_ptr<CALayer> gradient = std::make_shared<CALayer>();
};

TEST_F(ViewTree, LayersFollowTheOrderOfSubviews) {
  const struct {
    const char* what;
    std::function<void()> action;
    std::string subviews, sublayers;
  } steps[] = {
      {"as added", [] {}, "abc", "-abc"},
      {"to the front", [&] { window->bringSubviewToFront(*a); }, "bca", "-bca"},
      {"under everything", [&] { window->sendSubviewToBack(*c); }, "cba", "c-ba"},
      {"added again", [&] { window->addSubview(window->subviews()[1]); }, "cab", "c-ab"},
      {"into another", [&] { c->addSubview(window->subviews()[1]); }, "cb", "c-b"},
      {"of another", [&] { window->bringSubviewToFront(*a); }, "cb", "c-b"},
      {"taken away", [&] { c->removeFromSuperview(); }, "b", "-b"},
      {"nothing added", [&] { window->addSubview(nullptr); }, "b", "-b"},
  };
  for (const auto& step : steps) {
    step.action();
    EXPECT_EQ(names(window->subviews()), step.subviews) << step.what;
    EXPECT_EQ(names(window->layer().sublayers()), step.sublayers) << step.what;
  }
  EXPECT_EQ(a->superview(), c.get());
  EXPECT_EQ(a->layer().superlayer(), &c->layer());
  EXPECT_THROW(a->addSubview(c), std::invalid_argument);
}

TEST_F(ViewTree, AWholeBranchIsToldOfItsWindow) {
  b->addSubview(a);  // Within the window: no news.
  b->removeFromSuperview();
  EXPECT_EQ(a->window(), nullptr);
  auto other = visibleWindow();
  other->addSubview(b);
  window->addSubview(b);
  EXPECT_EQ(a->window(), window.get());
  const std::vector<std::string> expected{"in", "out", "in", "in"};
  EXPECT_EQ(a->log, expected);
  EXPECT_EQ(b->log, expected);
}

TEST_F(ViewTree, WhatOutlivesItsSuperviewOrItsViewStandsAlone) {
  const auto layer = std::static_pointer_cast<CALayer>(window->layer().shared_from_this());
  const auto orphan = std::weak_ptr(b);
  b.reset();
  window.reset();
  EXPECT_TRUE(orphan.expired());
  EXPECT_EQ(layer->delegate(), nullptr);
  EXPECT_EQ(a->superview(), nullptr);
  EXPECT_EQ(a->window(), nullptr);
  EXPECT_EQ(a->layer().superlayer(), nullptr);
}

}  // namespace
