#include "monkey/invariants.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <variant>
#include <vector>

#include "monkey/invariant_violation.h"
#include "platform/foundation/delayed_perform.h"
#include "platform/foundation/run_loop.h"
#include "platform/quartzcore/ca_gradient_layer.h"
#include "platform/quartzcore/screen_changes.h"
#include "platform/uikit/ui_application.h"
#include "platform/uikit/ui_device.h"
#include "platform/uikit/ui_window.h"
#include "prefs/settings.h"
#include "switcher/layout.h"
#include "switcher/shared_state.h"
#include "tests/support/geometry.h"

namespace monkey {
namespace {

using namespace vistrel;
using test::isFinite;
using test::liesAt;

// A screen has far fewer of both.
constexpr std::size_t mostWindows = 64;
constexpr int mostLayers = 2000;

void require(bool holds, const char* statement) {
  if (!holds) throw InvariantViolation(statement);
}

void requireFinite(const CALayerGeometry& geometry) {
  require(isFinite(geometry.bounds) && isFinite(CALayer::frameOf(geometry)) && geometry.opacity >= 0 &&
              geometry.opacity <= 1,
          "every frame is finite and every opacity from 0 to 1");
}

/// How many layers there are, `layer` included.
int checkTree(const CALayer& layer) {
  requireFinite(layer.model());
  requireFinite(layer.presentationAt(RunLoop::main().now()));
  int count = 1;
  for (const auto& sublayer : layer.sublayers()) {
    require(sublayer->superlayer() == &layer, "a sublayer knows its superlayer");
    count += checkTree(*sublayer);
  }
  return count;
}

int gradientsIn(const CALayer& layer) {
  int count = dynamic_cast<const CAGradientLayer*>(&layer) ? 1 : 0;
  for (const auto& sublayer : layer.sublayers()) count += gradientsIn(*sublayer);
  return count;
}

template <class Item>
bool areSubviewsOf(const UIView& view, const std::vector<std::shared_ptr<Item>>& items) {
  return std::ranges::equal(view.subviews(), items);
}

bool isUpright() {
  return UIInterfaceOrientationIsPortrait(UIApplication::sharedApplication().statusBarOrientation());
}

/// What is there, or the violation that it is not.
template <class View>
View& required(View* view) {
  require(view != nullptr, "the boot makes the window and the icon strip");
  return *view;
}

template <class Command>
bool is(const Event& event) {
  const auto* command = std::get_if<host::ScriptCommand>(&event);
  return command && std::holds_alternative<Command>(*command);
}

}  // namespace

Invariants::Invariants(const host::SpringBoard& springBoard)
    : springBoard_(springBoard),
      window_(required(switcherWindow)),
      iconStrip_(required(iconStrip)),
      nameStrip_(nameStrip),
      frame_(window_.frame()) {
  for (const host::AppListing& app : springBoard.applications()) appNames_.emplace(app.bundle, app.name);
}

void Invariants::check(const Event& event) {
  checkReferences();
  if (switcherOpen) {
    checkOpen();
  } else {
    checkClosed(event);
  }
  require(gradientsIn(window_.layer()) <= 1, "there is at most one gradient");
  checkPlace();
  checkVisibility(event);
  checkStrips();
  checkScreen();
  checkRest();
  wasOpen_ = switcherOpen;
  frame_ = window_.frame();
}

void Invariants::checkReferences() const {
  require(switcherWindow == &window_ && iconStrip == &iconStrip_ && nameStrip == nameStrip_,
          "the window and its strips stay the ones of the boot");
  require(iconStrip_.superview() == &window_ && (!nameStrip_ || nameStrip_->superview() == &window_),
          "the strips stay in the window");
}

void Invariants::checkClosed(const Event& event) {
  const std::size_t strips = nameStrip_ ? 2 : 1;
  require(window_.subviews().size() == strips, "a closed switcher has just its strips as subviews");
  require(window_.layer().sublayers().size() == strips, "a closed switcher has no layers of its own");
  require(!window_.topBand() && !window_.bottomBand() && !window_.middleBand() && !window_.homeScreenTop() &&
              !window_.homeScreenBottom(),
          "a closed switcher has no bands");
  require(!finishedOpenAnimation, "a closed switcher has not finished opening");
  const bool isDeclined = springBoard_.locked() && !settings.lsEnabled &&
                          (is<host::ActivatorCommand>(event) || is<host::TouchCommand>(event));
  wasDeclined_ = iconPickMode && (wasDeclined_ || isDeclined);
  require(!iconPickMode || wasDeclined_, "a closed switcher waits for no pick, unless it was not let open");
}

void Invariants::checkOpen() const {
  require(window_.topBand() && window_.bottomBand(), "an open switcher has an upper and a lower band");
}

/// The window lies over the whole screen when it has opened. Closed, and in a device held upright, wherever
/// it has been moved to is its resting place: settings may have changed that without anybody moving it yet.
void Invariants::checkPlace() {
  if (!isUpright()) return;
  const bool hasMoved = !(window_.frame() == frame_);
  if (switcherOpen && !wasOpen_) require(liesAt(window_, screenBounds), "an open switcher covers the screen");
  if (switcherOpen && wasOpen_ && hasMoved)
    require(liesAt(window_, restingWindowFrame()) || liesAt(window_, screenBounds),
            "an open switcher moves to its resting place at most");
  if (!switcherOpen && (wasOpen_ || hasMoved))
    require(liesAt(window_, restingWindowFrame()), "a closed switcher lies at its resting place");
}

void Invariants::checkVisibility(const Event& event) {
  switch (UIDevice::currentDevice().orientation()) {
    case UIDeviceOrientation::LandscapeLeft:
    case UIDeviceOrientation::LandscapeRight:
      isHeldAside_ = true;
      break;
    case UIDeviceOrientation::Portrait:
    case UIDeviceOrientation::PortraitUpsideDown:
      isHeldAside_ = false;
      break;
    default:
      break;
  }
  const bool isVisible = window_.alpha() == 1;
  require(isVisible || window_.alpha() == 0, "the window is visible or it is not");
  if (!hiddenForApp || !isVisible) wasTouchedBack_ = false;
  if (hiddenForApp && isVisible && is<host::TouchCommand>(event)) wasTouchedBack_ = true;
  if (hiddenForApp) require(!isVisible || wasTouchedBack_, "hidden for an application means invisible");
  if (!hiddenForApp && !isHeldAside_) require(isVisible, "nothing to hide from means visible");
}

void Invariants::checkStrips() const {
  const NSStringArray offered = window_.recentIDs() ? *window_.recentIDs() : NSStringArray();
  const auto showsIcon = [this](const std::string& bundle, const auto& icon) {
    return icon->image() == springBoard_.icon(bundle);
  };
  require(std::ranges::equal(offered, iconStrip_.icons(), showsIcon), "the icons are those of the list");
  require(areSubviewsOf(iconStrip_, iconStrip_.icons()), "icons alone lie in their strip");
  if (!nameStrip_) return;
  const auto showsName = [this](const std::string& bundle, const auto& label) {
    const auto name = appNames_.find(bundle);
    return label->text() == (name == appNames_.end() ? "" : name->second);
  };
  require(std::ranges::equal(offered, nameStrip_->names(), showsName), "the names are those of the list");
  require(areSubviewsOf(*nameStrip_, nameStrip_->names()), "names alone lie in their strip");
}

void Invariants::checkScreen() const {
  const auto& windows = UIWindow::allWindows();
  require(windows.size() <= mostWindows, "windows do not pile up");
  int layers = 0;
  for (const UIWindow* window : windows) layers += checkTree(window->layer());
  require(layers <= mostLayers, "layers do not pile up");
}

/// What is under way ends: nothing outlives the work that would end it.
void Invariants::checkRest() const {
  const bool nothingIsDue = RunLoop::main().idle();
  require(!nothingIsDue || !anyAnimationRuns(), "an animation that runs will be ended");
  require(!nothingIsDue || !springBoard_.busy(), "a request that is under way will be met");
  for (const id& target : pendingPerformTargets()) {
    const auto* view = dynamic_cast<const UIView*>(target.get());
    require(!view || view->window(), "a delayed perform waits for a view that is still in a window");
  }
}

}  // namespace monkey
