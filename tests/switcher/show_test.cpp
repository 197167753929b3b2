#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "prefs/settings.h"
#include "strips/card_dragger.h"
#include "strips/name_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/shared_state.h"
#include "tests/support/test_device.h"

namespace vistrel::test {
namespace {

std::string text(CGRect r) {
  std::ostringstream out;
  out << r.origin.x << ' ' << r.origin.y << ' ' << r.size.width << ' ' << r.size.height;
  return out.str();
}

/// The window's subviews, back to front: class and frame, strips by name alone.
std::vector<std::string> layout() {
  std::vector<std::string> lines;
  for (const auto& view : switcherWindow->subviews()) {
    if (view.get() == iconStrip) {
      lines.push_back("icons");
    } else if (view.get() == nameStrip) {
      lines.push_back("names");
    } else {
      lines.push_back((view->isa().name() == "SBLinenView" ? "linen " : "band ") + text(view->frame()));
    }
  }
  return lines;
}

const PropertyListDictionary noPeek = {{"swipeActionEnabled", false}, {"lsEnabled", true}};

PropertyListDictionary with(PropertyListDictionary base, const PropertyListDictionary& more) {
  for (const auto& [key, value] : more) base.insert_or_assign(key, value);
  return base;
}

TEST(Show, EveryStyleLaysOutAndOpensItsBands) {
  struct Case {
    PropertyListDictionary style;
    std::vector<std::string> closed, open;  // The bands, back to front.
  };
  const std::string upper = "band 0 0 320 160", lower = "band 0 240 320 240";
  const Case cases[] = {
      {{}, {"band 0 0 320 200", "band 0 200 320 280"}, {"band 0 -40 320 200", "band 0 240 320 280"}},
      {{{"animationStyle", "Flat"}},
       {"band 0 160 320 80", lower, upper},
       {"band -320 160 320 80", lower, upper}},
      {{{"swipeDirection", "Left"}},
       {"band 0 160 320 80", lower, upper},
       {"band 320 160 320 80", lower, upper}},
      {{{"swipeDirection", "Top"}}, {"band 0 160 320 80", lower, upper}, {"band 0 160 320 80", lower, upper}},
      {{{"flatAnimationStyle", "Up"}},
       {"band 0 160 320 80", lower, upper},
       {"band 0 80 320 80", lower, upper}},
      {{{"flatAnimationStyle", "Down"}},
       {"band 0 160 320 80", lower, upper},
       {"band 0 320 320 80", lower, upper}},
      {{{"flatAnimationStyle", "Split"}},
       {"band 0 160 320 40", "band 0 200 320 40", lower, upper},
       {"band 0 120 320 40", "band 0 280 320 40", lower, upper}},
      {{{"flatAnimationStyle", "Odd"}}, {lower, upper}, {lower, upper}},
      {{{"animationStyle", "Odd"}}, {}, {}},
  };
  TestDevice device({.preferences = noPeek});
  device.launch(testBundles[0]);
  for (const Case& c : cases) {
    device.changePreferences(c.style);
    switcherWindow->showAtPoint(200);
    // What the bands animate from is on screen now; their model is where they go.
    std::vector<std::string> closed, open;
    for (const auto& view : switcherWindow->subviews()) {
      if (view.get() == iconStrip || view->isa().name() != "UIImageView") continue;
      closed.push_back("band " + text(CALayer::frameOf(view->layer().presentationAt(RunLoop::main().now()))));
      open.push_back("band " + text(view->frame()));
    }
    EXPECT_EQ(closed, c.closed);
    EXPECT_EQ(open, c.open);
    EXPECT_EQ(layout().front(), "linen 0 120 320 160");
    EXPECT_EQ(text(iconStrip->frame()), "0 170 320 60");
    EXPECT_EQ(switcherWindow->frame(), screenBounds);
    EXPECT_EQ(switcherWindow->windowLevel(), 9000);
    device.pump(0.4);
    EXPECT_TRUE(finishedOpenAnimation);
    switcherWindow->hide();
    device.pump(0.4);
    EXPECT_FALSE(switcherOpen || finishedOpenAnimation);
    EXPECT_EQ(layout(), std::vector<std::string>{"icons"});
    EXPECT_EQ(switcherWindow->layer().sublayers().size(), 1u);
  }
}

TEST(Show, TheOpenAnimationTakesItsTimeAndShadesTheBands) {
  TestDevice device({.preferences = with(noPeek, {{"blur", true}})});
  device.launch(testBundles[0]);
  switcherWindow->showAtPoint(200);
  EXPECT_TRUE(switcherOpen);
  const auto& band = *switcherWindow->topBand();
  device.pump(0.15);
  EXPECT_FALSE(finishedOpenAnimation);
  CGRect midway = CALayer::frameOf(band.layer().presentationAt(RunLoop::main().now()));
  EXPECT_NEAR(midway.origin.y, -20, 0.1) << "ease-in-out is half-way at half time";
  device.pump(0.16);
  EXPECT_TRUE(finishedOpenAnimation);
  EXPECT_EQ(band.subviews().front()->alpha(), 0.5f);
  EXPECT_EQ(band.layer().shadowOffset(), CGSizeMake(0, 5));
  EXPECT_EQ(switcherWindow->bottomBand()->layer().shadowOffset(), CGSizeMake(0, -5));
  EXPECT_EQ(band.layer().shadowPath()->rect, CGRectMake(0, 0, 320, 200));
  ASSERT_EQ(band.layer().filters().size(), 1u);
  EXPECT_EQ(band.layer().filters()[0]->value("inputRadius"), 1.0f);
}

TEST(Show, IconsWaitForATapInPickModeAndForTheFingerOtherwise) {
  TestDevice device({.recents = {testBundles[0], testBundles[1]}});
  iconPickMode = true;
  switcherWindow->showAtPoint(240);
  for (const auto& icon : iconStrip->icons()) {
    EXPECT_EQ(icon->alpha(), 1);
    EXPECT_EQ(icon->layer().transform(), CATransform3DMakeScale(0.7f, 0.7f, 1));
  }
  EXPECT_TRUE(switcherWindow->topBand()->userInteractionEnabled());
  device.pump(0.4);
  device.down(160, 20);
  EXPECT_FALSE(iconPickMode) << "touching a band hides";
  device.up();
  device.pump(0.4);
  EXPECT_FALSE(switcherOpen);

  switcherWindow->showAtPoint(240);
  for (const auto& icon : iconStrip->icons()) EXPECT_EQ(icon->alpha(), 0.6f);
  EXPECT_FALSE(switcherWindow->topBand()->userInteractionEnabled());
}

TEST(Show, TheBackdropGoesWithTheShowingThatMadeIt) {
  TestDevice device(
      {.preferences = with(noPeek, {{"background", "Color"}, {"topColor", archived(1, 0, 0)}})});
  auto gradientOf = [] {
    return std::dynamic_pointer_cast<CAGradientLayer>(switcherWindow->layer().sublayers().front());
  };
  for (const char* backgroundAtClose : {"Color", "Linen", "Color", "Odd"}) {
    switcherWindow->showAtPoint(240);
    auto gradient = gradientOf();
    const bool expected = settings.background == word::color;
    EXPECT_EQ(gradient != nullptr, expected);
    if (expected) {
      EXPECT_EQ(gradient->frame(), CGRectMake(0, 0, 320, 480));
      EXPECT_EQ(gradient->colors().front(), (CGColor{1, 0, 0, 1}));
    }
    device.pump(0.4);
    device.changePreferences({{"background", backgroundAtClose}});
    switcherWindow->hide();
    device.pump(0.4);
    EXPECT_EQ(switcherWindow->layer().sublayers().size(), 1u) << backgroundAtClose;
    EXPECT_EQ(iconStrip->layer().superlayer(), &switcherWindow->layer());
  }
}

TEST(Show, ALockedDeviceOpensOnlyWhereTheUserWantsIt) {
  TestDevice device({.preferences = {{"lsEnabled", false}}, .locked = true});
  EXPECT_TRUE(device.receive());
  EXPECT_FALSE(switcherOpen);
  EXPECT_TRUE(iconPickMode);
  device.changePreferences({{"lsEnabled", true}});
  device.receive();
  EXPECT_TRUE(switcherOpen);
}

TEST(Show, NamesLieWhereTheUserWantsThem) {
  TestDevice device({.preferences = with(noPeek, {{"appNames", true}, {"appNamePosition", "Top"}}),
                     .recents = {testBundles[0]}});
  EXPECT_EQ(text(nameStrip->frame()), "305 140 320 30");
  for (auto [position, y] : std::map<std::string, float>{{"Bottom", 220.0f}, {"Top", 160.0f}}) {
    device.changePreferences({{"appNamePosition", position}});
    switcherWindow->showAtPoint(200);
    EXPECT_EQ(nameStrip->frame(), CGRectMake(0, y, 320, 30));
    EXPECT_EQ(switcherWindow->subviews().back().get(), nameStrip);
    device.pump(0.4);
    EXPECT_EQ(nameStrip->alpha(), 1);
    switcherWindow->hide();
    device.pump(0.4);
    EXPECT_EQ(nameStrip->alpha(), 0);
  }
}

TEST(Dismissal, ParksOnceHoweverOftenItIsAskedFor) {
  TestDevice device;
  switcherWindow->hide();
  EXPECT_EQ(text(iconStrip->frame()), "305 210 320 60");
  switcherWindow->showAtPoint(200);
  device.pump(0.1);
  switcherWindow->hide();
  device.pump(0.1);
  switcherWindow->closeToSB();
  switcherWindow->hide();
  EXPECT_EQ(text(switcherWindow->topBand()->frame()), "0 0 320 200");
  EXPECT_EQ(text(switcherWindow->bottomBand()->frame()), "0 200 320 280");
  device.pump(0.19);
  EXPECT_TRUE(switcherOpen);
  device.pump(0.02);
  EXPECT_FALSE(switcherOpen);
  EXPECT_EQ(text(switcherWindow->frame()), "305 0 320 480");
  EXPECT_EQ(text(iconStrip->frame()), "305 170 320 60");
  device.pump(1);
  EXPECT_FALSE(switcherOpen || finishedOpenAnimation);
}

TEST(Dismissal, ThatIsOverAtOnceEndsTheOpeningToo) {
  TestDevice device({.preferences = {{"animationStyle", "Push"}}});
  device.receive();
  device.changePreferences({{"animationStyle", "?"}});
  device.abort();
  device.pump(1);
  EXPECT_FALSE(switcherOpen || finishedOpenAnimation);
}

TEST(Dismissal, ToTheHomeScreenFliesTheBandsApart) {
  TestDevice device({.preferences = {{"animationStyle", "Flat"},
                                     {"flatAnimationStyle", "Down"},
                                     {"lsEnabled", true},
                                     {"swipeActionEnabled", true}}});
  device.launch(testBundles[0]);
  switcherWindow->setStartPoint({0, 250});
  switcherWindow->showAtPoint(200);
  device.pump(0.4);
  auto sbTop = switcherWindow->homeScreenTop(), sbBottom = switcherWindow->homeScreenBottom();
  EXPECT_EQ(text(sbTop->frame()), "0 -80 320 200");
  EXPECT_EQ(text(sbBottom->frame()), "0 280 320 280");
  switcherWindow->closeToSB();
  EXPECT_EQ(text(switcherWindow->topBand()->frame()), "0 -160 320 160");
  EXPECT_EQ(text(switcherWindow->bottomBand()->frame()), "0 480 320 240");
  EXPECT_EQ(text(switcherWindow->middleBand()->frame()), "0 480 320 80");
  EXPECT_EQ(switcherWindow->middleBand()->alpha(), 0);
  EXPECT_EQ(text(sbTop->frame()), "0 0 320 200");
  EXPECT_EQ(text(sbBottom->frame()), "0 250 320 280");
  device.pump(0.49);
  EXPECT_TRUE(switcherOpen);
  device.pump(0.02);
  EXPECT_EQ(layout(), std::vector<std::string>{"icons"});
}

}  // namespace
}  // namespace vistrel::test
