#include "platform/uikit/ui_device.h"
#include "switcher/card_scroller.h"
#include "switcher/rotation.h"
#include "switcher/shared_state.h"

namespace vistrel {
namespace {

void vanish(UIView& window) {
  window.setUserInteractionEnabled(false);
  window.setAlpha(0);
}

void appear(UIView& window) {
  window.setUserInteractionEnabled(true);
  window.setAlpha(1);
}

}  // namespace

void CardScroller::hideForApp() {
  if (hiddenForApp) return;
  vanish(*this);
  hiddenForApp = true;
}

void CardScroller::showForAppClose() {
  if (!hiddenForApp) return;
  appear(*this);
  hiddenForApp = false;
}

void CardScroller::hideForRotation() { vanish(*this); }

void CardScroller::showForRotation() {
  if (!hiddenForApp) appear(*this);
}

void CardScroller::didRotate() {
  switch (UIDevice::currentDevice().orientation()) {
    case UIDeviceOrientation::LandscapeLeft:
    case UIDeviceOrientation::LandscapeRight:
      hideForRotation();
      break;
    case UIDeviceOrientation::Portrait:
    case UIDeviceOrientation::PortraitUpsideDown:
      showForRotation();
      break;
    default:  // Lying flat says nothing about how it is held.
      break;
  }
}

void CardScroller::didRotateFromInterfaceOrientation(UIInterfaceOrientation from) { reorient(*this, from); }

bool CardScroller::shouldAutorotateToInterfaceOrientation(int orientation) {
  return isInterfaceOrientation(orientation);
}

}  // namespace vistrel
