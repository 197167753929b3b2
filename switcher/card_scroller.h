#pragma once

#include <memory>
#include <string>

#include "platform/foundation/ns_array.h"
#include "platform/quartzcore/ca_gradient_layer.h"
#include "platform/springboard/sb_linen_view.h"
#include "platform/uikit/ui_image_view.h"
#include "platform/uikit/ui_orientation.h"
#include "platform/uikit/ui_window.h"

namespace vistrel {

/// The switcher's window; one exists.
///
/// Closed, it is parked beside the screen so that a strip of it, the grab strip, shows at one edge. Open, it
/// covers the screen and carries what a show has built: bands of the screen's picture, which have moved
/// apart, over a backdrop, with the icon strip between them. Points; "split point" is a height from the top
/// of the screen.
class CardScroller : public UIWindow {
  OBJC_CLASS(CardScroller, UIWindow)
 public:
  /// Takes touches, offers the recent applications (or favourites) and has no subviews yet.
  explicit CardScroller(CGRect frame);

  // The applications on offer (app_list.cpp).
  /// Bundle identifiers, in order of their places; null is no list.
  const NSStringArrayRef& recentIDs() const { return recentIDs_; }
  void setRecentIDs(NSStringArrayRef identifiers) { recentIDs_ = std::move(identifiers); }
  /// How many applications are on offer; none without a list.
  unsigned appCount() const { return recentIDs_ ? static_cast<unsigned>(recentIDs_->size()) : 0; }
  /// Opens the application at a place of the list; a place outside of it opens nothing.
  void openAppAtIndex(long index);
  /// Both take the list afresh from SpringBoard, whichever application they are sent for.
  void removeCardWithBundleID(const std::string& identifier);
  void setImagesForBundle(const std::string& identifier);

  // Bands of a picture (bands.cpp), of the working width, for a picture of scale 1 whose pixels are the
  // device's. `point` is the lower edge of the top band and the upper edge of all others. The middle band is
  // as high as the gap that opens; the two halves are alike and differ only in where they are cut. Null where
  // the band does not meet the picture.
  /// `rect` in the picture's points.
  static std::shared_ptr<UIImage> cropImage(const std::shared_ptr<UIImage>& image, CGRect rect);
  static std::shared_ptr<UIImage> topImage(const std::shared_ptr<UIImage>& image, float point);
  static std::shared_ptr<UIImage> bottomImage(const std::shared_ptr<UIImage>& image, float point);
  static std::shared_ptr<UIImage> middleImage(const std::shared_ptr<UIImage>& image, float point);
  static std::shared_ptr<UIImage> topMiddleImage(const std::shared_ptr<UIImage>& image, float point);
  static std::shared_ptr<UIImage> bottomMiddleImage(const std::shared_ptr<UIImage>& image, float point);

  /// Opens the switcher, split at `point` (show.cpp). Declines on a locked device where the user does not
  /// want it there.
  void showAtPoint(float point);

  // The finger (gesture.cpp, release.cpp).
  /// Where the touch that is followed began, in the window's coordinates.
  CGPoint startPoint() const { return startPoint_; }
  void setStartPoint(CGPoint point) { startPoint_ = point; }
  /// Also readies the window for the touch; under a keyboard it drops to the keyboard's level and lets
  /// through what misses its subviews.
  UIView* hitTest(CGPoint point, UIEvent* event) override;
  void touchesBegan(const UITouchSet& touches, UIEvent* event) override;
  void touchesMoved(const UITouchSet& touches, UIEvent* event) override;
  void touchesEnded(const UITouchSet& touches, UIEvent* event) override;
  void touchesCancelled(const UITouchSet& touches, UIEvent* event) override;

  // Closing (dismissal.cpp): over what it was opened on, or to the home screen. Ignored while closed or
  // closing.
  void hide();
  void closeToSB();

  // Getting out of the way (visibility.cpp): transparent and deaf, without closing.
  void hideForApp();
  void showForAppClose();
  void hideForRotation();
  void showForRotation();
  /// The device has been turned.
  void didRotate();
  /// The interface has been turned; `from` is how it stood before.
  void didRotateFromInterfaceOrientation(UIInterfaceOrientation from);
  static bool shouldAutorotateToInterfaceOrientation(int orientation);

  void reloadPrefs();

  // What the show has built, for whoever looks on; each null where the style does without it.
  const std::shared_ptr<UIImageView>& topBand() const { return topImageView_; }
  const std::shared_ptr<UIImageView>& bottomBand() const { return bottomImageView_; }
  const std::shared_ptr<UIImageView>& middleBand() const { return middleImageView_; }
  const std::shared_ptr<UIImageView>& homeScreenTop() const { return sbTop_; }
  const std::shared_ptr<UIImageView>& homeScreenBottom() const { return sbBottom_; }

 private:
  using ImageView = std::shared_ptr<UIImageView>;
  using View = std::shared_ptr<UIView>;

  void rebuildAppList();

  void addBackdrop(float point);
  void addHomeScreenBands(float point);
  void makeBands(const std::shared_ptr<UIImage>& screenPicture, float point);
  void makeMiddleBands(const std::shared_ptr<UIImage>& screenPicture, float point);
  void addBands();
  void castBandShadows();
  void addCloseButtons();
  void placeStrips(float point);
  void routeTouches();
  void openBands(float point);
  void openMiddleBands(float point);
  void awakenIcons();
  void blurBands();

  bool opensAlongEdge(CGPoint finger) const;
  void openIfPulledFar(CGPoint finger);
  /// What the finger that opens the switcher will do: go on dragging, or lift and tap to pick.
  enum class Opening { Drag, Pick };
  void openAt(float fingerHeight, Opening opening);
  void peek(float y);
  void peekUpward(float y);
  void peekDownward(float y);
  void endPeek();

  bool runSwipeActions(float y);

  void beginDismissal();
  void closeBands();
  void flyBandsApart();
  void shrinkStrips();
  void finishDismissal();
  void giveUpViews();

  NSStringArrayRef recentIDs_;
  ImageView topImageView_;       ///< The band above the split.
  float openPoint_ = 0;          ///< The split point of this show.
  ImageView bottomImageView_;    ///< The band below the split.
  View topShade_, bottomShade_;  ///< Black over those bands.
  CGPoint startPoint_;
  ImageView middleImageView_;     ///< "Flat": the band that moves away...
  ImageView topMiddleImageView_;  ///< ... or, for "Split", its upper and lower halves.
  ImageView bottomMiddleImageView_;
  View topMiddleShade_, bottomMiddleShade_, middleShade_;  ///< Over those, without a colour of their own.
  ImageView sbTop_, sbBottom_;   ///< The home screen's picture, above and below the split.
  bool showingSBViews_ = false;  ///< The peek at the home screen is on.
  std::shared_ptr<SBLinenView> linen_;
  std::shared_ptr<CAGradientLayer> gradient_;
  bool dismissing_ = false;
};

}  // namespace vistrel
