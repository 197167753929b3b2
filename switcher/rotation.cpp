#include "switcher/rotation.h"

#include "platform/uikit/ui_application.h"
#include "switcher/shared_state.h"

namespace vistrel {
namespace {

constexpr float quarterTurn = 1.5707964f;

void turn(UIView& receiver, float angle) {
  receiver.setTransform(CGAffineTransformRotate(receiver.transform(), angle));
  receiver.setBounds(CGRectMake(0, 0, screenWidth, screenHeight));
}

}  // namespace

void reorient(UIView& receiver, UIInterfaceOrientation from) {
  const UIInterfaceOrientation now = UIApplication::sharedApplication().statusBarOrientation();
  screenWidth = screenBounds.size.width;
  screenHeight = screenBounds.size.height;
  if (UIInterfaceOrientationIsPortrait(from) && UIInterfaceOrientationIsLandscape(now)) {
    screenWidth = screenBounds.size.height;
    screenHeight = screenBounds.size.width;
    turn(receiver, -quarterTurn);
  } else if (!UIInterfaceOrientationIsPortrait(from) && UIInterfaceOrientationIsPortrait(now)) {
    turn(receiver, quarterTurn);
  }
}

bool isInterfaceOrientation(int orientation) {
  return orientation >= static_cast<int>(UIInterfaceOrientation::Portrait) &&
         orientation <= static_cast<int>(UIInterfaceOrientation::LandscapeLeft);
}

}  // namespace vistrel
