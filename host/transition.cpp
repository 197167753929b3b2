#include "host/transition.h"

/// The calls that an application's way to the front makes, in this order:
///
///   SBApplication activate                    the request; the recents list has moved before the next call
///   SBApplication _activationStateToString
///   SBUIAnimationController initWithActivatingApp:deactivatingApp:
///   SBApplication didLaunch:                  these two only where its process has just been started
///   SBApplication _setHasBeenLaunched
///   ... the animation runs ...
///   SBApplication didAnimateActivation
///   SBApplication didActivate
///   UIApplication _reportAppLaunchFinished    only where its process has just been started
///
/// Through an icon, SBApplicationIcon launch stands around the first five of them; through the switcher,
/// SBUIController activateApplicationFromSwitcher: does. For an application that is in front already there
/// are only activate, _activationStateToString and didActivate; on the way home there is the controller
/// alone. Who is in front changes, and is logged, right before the controller is made.

namespace host {
namespace {

constexpr CFTimeInterval iconSeconds = 0.3;    // Out of an icon or back into it.
constexpr CFTimeInterval fadeSeconds = 0.12;   // Out of an icon, until nothing shines through any more.
constexpr CFTimeInterval switchSeconds = 0.3;  // From application to application.
constexpr CGFloat iconShare = 0.18f;           // Of its size, that a screen has over its icon.
constexpr CGFloat trailingShare = 0.3f;        // Of the width, that the outgoing screen makes room.
constexpr CGFloat trailingAlpha = 0.4f;

CGPoint middle(const UIView& screen) {
  const CGRect around = screen.superview()->bounds();
  return {CGRectGetMidX(around), CGRectGetMidY(around)};
}

void placeOverIcon(AppScreen& screen, std::optional<CGPoint> iconCenter) {
  screen.setCenter(iconCenter.value_or(middle(screen)));
  screen.setTransform(
      CGAffineTransformConcat(CGAffineTransformMakeScale(iconShare, iconShare), screen.upright()));
  screen.setAlpha(0);
}

void placeInFront(AppScreen& screen) {
  screen.setCenter(middle(screen));
  screen.setTransform(screen.upright());
  screen.setAlpha(1);
}

/// Beside its place, by a part of the screen's width to the right.
void placeAside(AppScreen& screen, CGFloat share) {
  const CGPoint center = middle(screen);
  screen.setCenter({center.x + screen.superview()->bounds().size.width * share, center.y});
}

}  // namespace

void Transition::registerMethods() {
  // The screens come along with run(); by themselves the applications change nothing about the animation.
  SBUIAnimationController::objcClass().addMethod(
      "initWithActivatingApp:deactivatingApp:",
      +[](SBUIAnimationController& self, SBApplication*, SBApplication*) { return &self; });
}

void Transition::run(AppScreen* incoming, AppScreen* outgoing, std::optional<CGPoint> iconCenter,
                     std::function<void()> ended) {
  if (incoming && outgoing) {
    placeAside(*incoming, 1);
    auto pass = [=] {
      placeInFront(*incoming);
      placeAside(*outgoing, -trailingShare);
      outgoing->setAlpha(trailingAlpha);
    };
    UIView::animateWithDuration(switchSeconds, pass, std::move(ended));
  } else if (incoming) {
    placeOverIcon(*incoming, iconCenter);
    UIView::animateWithDuration(fadeSeconds, [=] { incoming->setAlpha(1); });
    UIView::animateWithDuration(
        iconSeconds, [=] { placeInFront(*incoming); }, std::move(ended));
  } else if (outgoing) {
    UIView::animateWithDuration(
        iconSeconds, [=] { placeOverIcon(*outgoing, iconCenter); }, std::move(ended));
  }
}

}  // namespace host
