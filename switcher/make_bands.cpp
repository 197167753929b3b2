#include "platform/uikit/ui_bezier_path.h"
#include "prefs/settings.h"
#include "switcher/card_scroller.h"
#include "switcher/device_paths.h"
#include "switcher/layout.h"
#include "switcher/shared_state.h"
#include "switcher/views.h"

namespace vistrel {
namespace {

constexpr float homeBandOutset = 80;  // The home screen's bands begin this far outside of their places.
constexpr float bandShadowDistance = 5;
constexpr float bandShadowOpacity = 0.5f;

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

/// An upper band's shadow falls downward, a lower one's upward.
void castShadows(UIView& upper, UIView& lower) {
  castShadow(upper, bandShadowDistance);
  castShadow(lower, -bandShadowDistance);
}

}  // namespace

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
  castShadows(*sbTop_, *sbBottom_);
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
    if (settings.flatGoesAside() || settings.flatGoesUp() || settings.flatGoesDown())
      addSubview(middleImageView_);
    if (settings.flatSplits()) {
      addSubview(topMiddleImageView_);
      addSubview(bottomMiddleImageView_);
    }
    addSubview(bottomImageView_);
    addSubview(topImageView_);
  }
}

void CardScroller::castBandShadows() { castShadows(*topImageView_, *bottomImageView_); }

}  // namespace vistrel
