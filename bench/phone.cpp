#include "bench/phone.h"

#include <stdexcept>

#include "bench/figure.h"
#include "platform/uikit/display.h"
#include "platform/uikit/ui_image_view.h"
#include "platform/uikit/ui_window.h"
#include "prefs/settings.h"
#include "strips/card_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/shared_state.h"

namespace bench {
namespace {

using namespace vistrel;
using namespace vistrel::test;

constexpr CGFloat pixel = 0.5f;  // Points.

PropertyListDictionary withGrowth(PropertyListDictionary preferences) {
  preferences.insert({{"appNames", true},
                      {"iconAnimation", std::string(word::grow)},
                      {"nameAnimation", std::string(word::grow)}});
  return preferences;
}

void moveDown(UIView& view, CGFloat step) { view.setCenter({view.center().x, view.center().y + step}); }

}  // namespace

Phone::Phone(PropertyListDictionary preferences)
    : device_({.preferences = withGrowth(std::move(preferences)), .recents = testBundles}) {
  for (const std::string& bundle : testBundles) {
    device_.launch(bundle);
    device_.home();
  }
}

void Phone::open() {
  if (!device_.receive()) throw std::logic_error("the switcher does not open");
}

void Phone::openOnMiddleIcon() {
  device_.swipeIn(middle, iconStrip->icons()[testBundles.size() / 2]->center().x);
  if (!switcherOpen) throw std::logic_error("the switcher does not open");
  while (!finishedOpenAnimation) device_.pump(frame);
}

void Phone::close() {
  if (!switcherOpen) return;
  device_.abort();
  while (switcherOpen) device_.pump(frame);
}

void Phone::nudgeBands() {
  const CGFloat step = nudge();
  for (const auto& view : switcherWindow->subviews())
    if (dynamic_cast<UIImageView*>(view.get())) moveDown(*view, step);
}

void Phone::nudgeWallpaper() {
  const CGFloat step = nudge();
  for (const UIWindow* window : UIWindow::allWindows()) {
    if (!window->hidden() && !window->subviews().empty()) return moveDown(*window->subviews().front(), step);
  }
  throw std::logic_error("nothing is on the screen");
}

CGFloat Phone::nudge() {
  nudged_ = !nudged_;
  return nudged_ ? pixel : -pixel;
}

double secondsOfFrame() {
  return secondsOf([] { UIGetScreenImage(); });
}

}  // namespace bench
