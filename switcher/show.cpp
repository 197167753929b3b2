#include "platform/quartzcore/ca_filter.h"
#include "platform/uikit/display.h"
#include "platform/uikit/ui_bezier_path.h"
#include "platform/uikit/ui_button.h"
#include "effects/background_layer.h"
#include "prefs/settings.h"
#include "strips/card_dragger.h"
#include "strips/name_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/home_screen_picture.h"
#include "switcher/layout.h"
#include "switcher/shared_state.h"
#include "switcher/spring_board.h"
#include "switcher/views.h"

namespace vistrel {
namespace {

constexpr double showDuration = 0.3;

constexpr float gapHalf = 40;          // Half of the gap that opens, and of the middle band.
constexpr float middleBandHeight = 80;
constexpr float linenHalf = 80;        // The linen reaches this far above and below the split.
constexpr float homeBandOutset = 80;   // The home screen's bands begin this far outside of their places.
constexpr float flatUpRise = 120;      // From the split to where the middle band ends up, going up and going down.
constexpr float flatDownDrop = 120;
constexpr float halfBandRise = 80;     // The same for the halves of "Split".
constexpr float halfBandDrop = 80;
constexpr float nameStripAbove = 40;
constexpr float nameStripBelow = 20;

constexpr float shadeAlpha = 0.5f;
constexpr float restingIconAlpha = 0.6f;
constexpr float bandShadowDistance = 5;
constexpr float bandShadowOpacity = 0.5f;
constexpr float blurRadius = 1.0f;

/// The shadow that a band throws on what lies behind it, `dy` points down (or up).
void castShadow(UIView& view, float dy) {
  CALayer& layer = view.layer();
  layer.setMasksToBounds(false);
  layer.setShadowColor(UIColor::blackColor().cgColor());
  layer.setShadowOffset({0, dy});
  layer.setShadowOpacity(bandShadowOpacity);
  layer.setShadowPath(UIBezierPath::bezierPathWithRect(view.bounds()).cgPath());
}

/// A view without colour that fills `band`, transparent.
std::shared_ptr<UIView> addShade(UIView& band) {
  auto shade = std::make_shared<UIView>(CGRect{{0, 0}, band.frame().size});
  band.addSubview(shade);
  shade->setAlpha(0);
  return shade;
}

std::shared_ptr<UIView> addBlackShade(UIView& band) {
  auto shade = addShade(band);
  shade->setBackgroundColor(UIColor::blackColor());
  return shade;
}

std::shared_ptr<UIImageView> bandView(std::shared_ptr<UIImage> picture) {
  auto view = std::make_shared<UIImageView>();
  view->setImage(std::move(picture));
  return view;
}

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
  castShadow(*topImageView_, bandShadowDistance);
  castShadow(*bottomImageView_, -bandShadowDistance);
  routeTouches();
  setFrame(screenBounds);

  animateWithDuration(
      showDuration, [&] { openBands(point); }, [] { finishedOpenAnimation = true; });
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

void CardScroller::addHomeScreenBands(float point) {
  springBoardImage = nullptr;
  springBoardImage = UIImage::imageWithContentsOfFile(homeScreenPicturePath);
  sbTop_ = bandView(topImage(springBoardImage, point));
  sbBottom_ = bandView(bottomImage(springBoardImage, point));
  place(sbTop_, 0, -homeBandOutset, bandSize(sbTop_));
  place(sbBottom_, 0, point + homeBandOutset, bandSize(sbBottom_));
  for (const auto& view : {sbTop_, sbBottom_}) {
    view->setAlpha(0);
    addSubview(view);
  }
  castShadow(*sbTop_, bandShadowDistance);
  castShadow(*sbBottom_, -bandShadowDistance);
}

void CardScroller::makeBands(const std::shared_ptr<UIImage>& screenPicture, float point) {
  topImageView_ = std::make_shared<UIImageView>();
  if (settings.pushes()) {
    topImageView_->setImage(topImage(screenPicture, point));
    topImageView_->setFrame(CGRectMake(0, 0, screenWidth, point));
  } else if (settings.isFlat()) {
    topImageView_->setImage(topImage(screenPicture, point - gapHalf));
    topImageView_->setFrame(CGRectMake(0, 0, screenWidth, point - gapHalf));
  }
  topShade_ = addBlackShade(*topImageView_);

  bottomImageView_ = std::make_shared<UIImageView>();
  if (settings.pushes()) {
    bottomImageView_->setImage(bottomImage(screenPicture, point));
    place(bottomImageView_, 0, point, bandSize(bottomImageView_));
  } else if (settings.isFlat()) {
    bottomImageView_->setImage(bottomImage(screenPicture, point + gapHalf));
    place(bottomImageView_, 0, point + gapHalf, bandSize(bottomImageView_));
    makeMiddleBands(screenPicture, point);
  }
  addBands();
  bottomShade_ = addBlackShade(*bottomImageView_);
}

void CardScroller::makeMiddleBands(const std::shared_ptr<UIImage>& screenPicture, float point) {
  if (settings.flatSplits()) {
    topMiddleImageView_ = bandView(topMiddleImage(screenPicture, point - gapHalf));
    place(topMiddleImageView_, 0, point - gapHalf, bandSize(topMiddleImageView_));
    topMiddleShade_ = addShade(*topMiddleImageView_);
    bottomMiddleImageView_ = bandView(bottomMiddleImage(screenPicture, point));
    place(bottomMiddleImageView_, 0, point, bandSize(bottomMiddleImageView_));
    bottomMiddleShade_ = addShade(*bottomMiddleImageView_);
  } else {
    middleImageView_ = bandView(middleImage(screenPicture, point - gapHalf));
    place(middleImageView_, 0, point - gapHalf, bandSize(middleImageView_));
    middleShade_ = addShade(*middleImageView_);
  }
}

/// Back to front: what moves away lies behind what stays. A sub-style that nobody knows shows no middle band.
void CardScroller::addBands() {
  if (settings.pushes()) {
    addSubview(topImageView_);
    addSubview(bottomImageView_);
  } else if (settings.isFlat()) {
    if (settings.flatGoesAside() || settings.flatGoesUp() || settings.flatGoesDown()) addSubview(middleImageView_);
    if (settings.flatSplits()) {
      addSubview(topMiddleImageView_);
      addSubview(bottomMiddleImageView_);
    }
    addSubview(bottomImageView_);
    addSubview(topImageView_);
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

/// Opened for a pick, icons and bands wait for a tap. Opened by a drag, the bands let the finger through to the window.
void CardScroller::routeTouches() {
  if (!iconPickMode) {
    takeTouches({topImageView_, bottomImageView_, middleImageView_, topMiddleImageView_, bottomMiddleImageView_, topShade_,
                 topMiddleShade_, bottomMiddleShade_, middleShade_},
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
    place(middleImageView_, 0, point - flatUpRise, fullBand);
  } else if (settings.flatGoesDown()) {
    fade(middleShade_, shadeAlpha);
    place(middleImageView_, 0, point + flatDownDrop, fullBand);
  } else if (settings.flatSplits()) {
    place(topMiddleImageView_, 0, point - halfBandRise, bandSize(topMiddleImageView_));
    place(bottomMiddleImageView_, 0, point + halfBandDrop, bandSize(bottomMiddleImageView_));
    fade(bottomMiddleShade_, shadeAlpha);
    fade(topMiddleShade_, shadeAlpha);
  }
}

void CardScroller::awakenIcons() {
  if (!iconStrip) return;
  for (const auto& icon : iconStrip->icons()) {
    if (!iconPickMode) icon->setAlpha(restingIconAlpha);
    scaleLayer(*icon, settings.iconSize);
  }
}

void CardScroller::blurBands() {
  blur(*topImageView_);
  blur(*bottomImageView_);
}

}  // namespace vistrel
