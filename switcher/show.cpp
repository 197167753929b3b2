#include "effects/background_layer.h"
#include "platform/quartzcore/ca_filter.h"
#include "platform/uikit/display.h"
#include "platform/uikit/ui_button.h"
#include "prefs/settings.h"
#include "strips/card_dragger.h"
#include "strips/name_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/layout.h"
#include "switcher/shared_state.h"
#include "switcher/spring_board.h"
#include "switcher/views.h"
#include "switcher/window_level.h"

namespace vistrel {
namespace {

constexpr double showDuration = 0.3;

constexpr float linenHalf = 80;  // The linen reaches this far above and below the split.
constexpr float nameStripAbove = 40;
constexpr float nameStripBelow = 20;
constexpr float shadeAlpha = 0.5f;
constexpr float blurRadius = 1.0f;

void blur(UIView& view) {
  auto filter = CAFilter::filterWithType("gaussianBlur");
  filter->setValue(blurRadius, "inputRadius");
  view.layer().setFilters({filter});
  view.layer().setShouldRasterize(true);
}

}  // namespace

void CardScroller::showAtPoint(float point) {
  if (!settings.lsEnabled && deviceIsLocked()) return;
  switcherOpen = true;
  setWindowLevel(openLevel);

  auto screenPicture = UIImage::imageWithCGImage(UIGetScreenImage());
  addBackdrop(point);
  if (settings.swipeActionEnabled) addHomeScreenBands(point);
  makeBands(screenPicture, point);
  openPoint_ = point;
  addCloseButtons();
  placeStrips(point);
  castBandShadows();
  routeTouches();
  setFrame(screenBounds);

  // A dismissal that has nothing to animate is over at once, and the opening that it cuts short after it.
  animateWithDuration(
      showDuration, [&] { openBands(point); }, [] { finishedOpenAnimation = switcherOpen; });
}

void CardScroller::addBackdrop(float point) {
  if (settings.background == word::color) {
    gradient_ = BackgroundLayer::blueGradient();
    gradient_->setFrame(bounds());
    layer().insertSublayer(gradient_, 0);
  } else if (settings.background == word::linen) {
    linen_ = std::make_shared<SBLinenView>(CGRectMake(0, point - linenHalf, screenWidth, 2 * linenHalf));
    linen_->setAutoresizingMask(UIViewAutoresizingFlexibleLeftMargin);
    addSubview(linen_);
    sendSubviewToBack(*linen_);
  }
}

/// A tap on the upper or lower band closes the switcher.
void CardScroller::addCloseButtons() {
  for (const auto& band : {topImageView_, bottomImageView_}) {
    auto button = UIButton::buttonWithType(UIButtonType::Custom);
    button->setFrame({{0, 0}, band->frame().size});
    button->addTarget(*this, "hide", UIControlEventTouchDown);
    button->setTitle("", UIControlStateNormal);
    band->addSubview(button);
  }
  takeTouches({topImageView_, bottomImageView_}, true);
}

void CardScroller::placeStrips(float point) {
  if (iconStrip) {
    iconStrip->setFrame(CGRectMake(0, point - halfIconStripHeight, screenWidth, iconStripHeight));
  }
  if (!settings.appNames || !nameStrip) return;
  if (settings.appNamePosition == word::top) {
    nameStrip->setFrame(CGRectMake(0, point - nameStripAbove, screenWidth, nameStripHeight));
  } else if (settings.appNamePosition == word::bottom) {
    nameStrip->setFrame(CGRectMake(0, point + nameStripBelow, screenWidth, nameStripHeight));
  }
  bringSubviewToFront(*nameStrip);
}

/// Opened for a pick, icons and bands wait for a tap. Opened by a drag, the bands let the finger through to
/// the window.
void CardScroller::routeTouches() {
  if (!iconPickMode) {
    takeTouches({topImageView_, bottomImageView_, middleImageView_, topMiddleImageView_,
                 bottomMiddleImageView_, topShade_, topMiddleShade_, bottomMiddleShade_, middleShade_},
                false);
  } else if (iconStrip) {
    iconStrip->prepForActivatorActivation();
    iconStrip->setUserInteractionEnabled(true);
  }
}

void CardScroller::openBands(float point) {
  if (settings.appNames && nameStrip) nameStrip->setAlpha(1);
  if (settings.pushes()) {
    topImageView_->setFrame(CGRectMake(0, -gapHalf, screenWidth, point));
  } else if (settings.isFlat()) {
    topImageView_->setFrame(CGRectMake(0, 0, screenWidth, point - gapHalf));
  }
  if (settings.pushes() || settings.isFlat()) {
    place(bottomImageView_, 0, point + gapHalf, bandSize(bottomImageView_));
    place(topShade_, 0, 0, sizeOf(topImageView_));
    place(bottomShade_, 0, 0, sizeOf(bottomImageView_));
    if (settings.dim) {
      fade(bottomShade_, shadeAlpha);
      fade(topShade_, shadeAlpha);
    }
  }
  if (settings.isFlat()) openMiddleBands(point);
  awakenIcons();
  if (settings.blur) blurBands();
}

void CardScroller::openMiddleBands(float point) {
  const CGSize fullBand{screenWidth, middleBandHeight};
  if (settings.flatGoesAside()) {
    fade(middleShade_, shadeAlpha);
    if (settings.swipeDirection == word::left) {
      place(middleImageView_, screenWidth, point - gapHalf, fullBand);
    } else if (settings.swipeDirection == word::right) {
      place(middleImageView_, -screenWidth, point - gapHalf, fullBand);
    }
  } else if (settings.flatGoesUp()) {
    fade(middleShade_, shadeAlpha);
    place(middleImageView_, 0, point - middleBandTravel, fullBand);
  } else if (settings.flatGoesDown()) {
    fade(middleShade_, shadeAlpha);
    place(middleImageView_, 0, point + middleBandTravel, fullBand);
  } else if (settings.flatSplits()) {
    place(topMiddleImageView_, 0, point - halfBandTravel, bandSize(topMiddleImageView_));
    place(bottomMiddleImageView_, 0, point + halfBandTravel, bandSize(bottomMiddleImageView_));
    fade(bottomMiddleShade_, shadeAlpha);
    fade(topMiddleShade_, shadeAlpha);
  }
}

void CardScroller::awakenIcons() {
  if (!iconStrip) return;
  for (const auto& icon : iconStrip->icons()) {
    if (!iconPickMode) icon->setAlpha(dimmedIconAlpha);
    scaleLayer(*icon, settings.iconSize);
  }
}

void CardScroller::blurBands() {
  blur(*topImageView_);
  blur(*bottomImageView_);
}

}  // namespace vistrel
