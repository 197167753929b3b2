#include "platform/foundation/delayed_perform.h"
#include "prefs/settings.h"
#include "strips/card_dragger.h"
#include "strips/name_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/device_paths.h"
#include "switcher/layout.h"
#include "switcher/shared_state.h"
#include "switcher/views.h"

namespace vistrel {
namespace {

constexpr double hideDuration = 0.3;
constexpr double closeToHomeDuration = 0.5;

}  // namespace

void CardScroller::hide() {
  if (!switcherOpen || dismissing_) return;
  beginDismissal();
  animateWithDuration(
      hideDuration, [this] { closeBands(); }, [this] { finishDismissal(); });
}

void CardScroller::closeToSB() {
  if (!switcherOpen || dismissing_) return;
  beginDismissal();
  if (settings.isFlat() && settings.flatSplits()) {
    fade(bottomMiddleImageView_, 0);
    fade(topMiddleImageView_, 0);
  }
  animateWithDuration(
      closeToHomeDuration, [this] { flyBandsApart(); }, [this] { finishDismissal(); });
}

void CardScroller::beginDismissal() {
  dismissing_ = true;
  // Only what was scheduled without a number; a name's number runs later and does nothing.
  if (iconStrip) cancelPreviousPerformRequests(*iconStrip, "enlargeIconAtIndex:", nullptr);
  if (nameStrip) cancelPreviousPerformRequests(*nameStrip, "enlargeNameAtIndex:", nullptr);
  iconPickMode = false;
}

/// The bands tile the screen again, as they did before they opened.
void CardScroller::closeBands() {
  shrinkStrips();
  const float split = openPoint_;
  if (settings.pushes()) {
    place(bottomImageView_, CGRectMake(0, split, screenWidth, screenHeight - split));
    place(topImageView_, CGRectMake(0, 0, screenWidth, split));
    fade(bottomShade_, 0);
    fade(topShade_, 0);
  } else if (settings.isFlat()) {
    place(bottomImageView_, CGRectMake(0, split + gapHalf, screenWidth, screenHeight - split - gapHalf));
    place(topImageView_, CGRectMake(0, 0, screenWidth, split - gapHalf));
    fade(bottomShade_, 0);
    fade(topShade_, 0);
    if (settings.flatSplits()) {
      place(topMiddleImageView_, 0, split - gapHalf, bandSize(topMiddleImageView_));
      place(bottomMiddleImageView_, 0, split, bandSize(bottomMiddleImageView_));
      fade(bottomMiddleShade_, 0);
      fade(topMiddleShade_, 0);
    } else {
      fade(middleShade_, 0);
      place(middleImageView_, CGRectMake(0, split - gapHalf, screenWidth, middleBandHeight));
    }
  }
}

/// The bands leave the screen at its ends while the home screen's halves close over it.
void CardScroller::flyBandsApart() {
  const float meeting = startPoint_.y;
  place(topImageView_, 0, -sizeOf(topImageView_).height, sizeOf(topImageView_));
  place(bottomImageView_, 0, screenHeight, sizeOf(bottomImageView_));
  fade(topImageView_, 0);
  fade(bottomImageView_, 0);
  place(sbTop_, 0, 0, sizeOf(sbTop_));
  place(sbBottom_, 0, meeting, sizeOf(sbBottom_));
  shrinkStrips();
  if (settings.pushes()) {
    fade(bottomShade_, 0);
    fade(topShade_, 0);
    place(linen_, CGRectMake(0, meeting, screenWidth, 0));
  } else if (settings.isFlat()) {
    if (settings.flatGoesUp()) {
      place(middleImageView_, 0, -sizeOf(middleImageView_).height, sizeOf(middleImageView_));
      fade(middleImageView_, 0);
    } else if (settings.flatGoesDown()) {
      place(middleImageView_, 0, screenHeight, sizeOf(middleImageView_));
      fade(middleImageView_, 0);
    } else if (settings.flatSplits()) {
      place(bottomMiddleImageView_, 0, screenHeight, sizeOf(bottomMiddleImageView_));
      place(topMiddleImageView_, 0, 0, sizeOf(topMiddleImageView_));
      fade(bottomMiddleImageView_, 0);
      fade(topMiddleImageView_, 0);
    }
  }
}

void CardScroller::shrinkStrips() {
  if (iconStrip) {
    for (const auto& icon : iconStrip->icons()) {
      icon->setAlpha(dimmedIconAlpha);
      scaleLayer(*icon, 0);
    }
  }
  if (nameStrip) nameStrip->setAlpha(0);
}

/// Parks the window and takes down what the show has built.
void CardScroller::finishDismissal() {
  if (iconStrip) {
    iconStrip->setFrame(
        CGRectMake(restingX(), openPoint_ - halfIconStripHeight, screenWidth, iconStripHeight));
  }
  setFrame(restingWindowFrame());
  switcherOpen = false;
  finishedOpenAnimation = false;
  giveUpViews();
  setBackgroundColor(UIColor::colorWithPatternImage(UIImage::imageWithContentsOfFile(grabImagePath)));
  if (gradient_) gradient_->removeFromSuperlayer();
  gradient_ = nullptr;
  dismissing_ = false;
}

/// All of them, whatever the style now is: it may have been changed while the switcher was open.
void CardScroller::giveUpViews() {
  const auto present = subviews();
  for (const auto& view : present) {
    if (view.get() != iconStrip && view.get() != nameStrip) view->removeFromSuperview();
  }
  topImageView_ = bottomImageView_ = middleImageView_ = topMiddleImageView_ = bottomMiddleImageView_ =
      nullptr;
  topShade_ = bottomShade_ = middleShade_ = topMiddleShade_ = bottomMiddleShade_ = nullptr;
  sbTop_ = sbBottom_ = nullptr;
  linen_ = nullptr;
}

}  // namespace vistrel
