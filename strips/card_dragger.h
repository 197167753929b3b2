#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/foundation/ns_array.h"
#include "platform/foundation/ns_number.h"
#include "platform/uikit/ui_image_view.h"
#include "platform/uikit/ui_orientation.h"

namespace vistrel {

/// The strip of application icons across the switcher; one exists, a subview of the window for good.
///
/// One icon an application on offer, in slots of equal width. The icon under the finger stands out; in pick
/// mode lifting the finger over an icon opens its application.
class CardDragger : public UIView {
  OBJC_CLASS(CardDragger, UIView)
 public:
  using Icons = std::vector<std::shared_ptr<UIImageView>>;

  /// Without icons; shuffleIcons builds them.
  explicit CardDragger(CGRect frame);

  /// One view an application, in the list's order; also the strip's only subviews.
  const Icons& icons() const { return icons_; }
  void setIcons(Icons icons) { icons_ = std::move(icons); }
  /// Where the touch began that is followed, in the strip's coordinates.
  CGPoint startPoint() const { return startPoint_; }
  void setStartPoint(CGPoint point) { startPoint_ = point; }

  /// Builds every icon, and through the name strip every name, afresh from the window's list.
  void shuffleIcons();
  /// Makes the icons opaque: the switcher opens for a pick.
  void prepForActivatorActivation();
  void scrollIcons(float distance);

  // The finger (icon_dragging.cpp). The window passes its own touches on too, but never their end.
  void touchesBegan(const UITouchSet& touches, UIEvent* event) override;
  void touchesMoved(const UITouchSet& touches, UIEvent* event) override;
  void touchesEnded(const UITouchSet& touches, UIEvent* event) override;
  /// A copy of the icon grows over it and fades. An index outside the list is ignored.
  void enlargeIconAtIndex(const NSNumber& index);
  /// Opens the application whose place is the sender's tag, 0 without a sender, and closes the switcher.
  void openApp(const UIView* sender);

  void didRotateFromInterfaceOrientation(UIInterfaceOrientation from);
  static bool shouldAutorotateToInterfaceOrientation(int orientation);

 private:
  std::int32_t indexOf(const UIView* view) const;
  void select(const UIView* selected);

  Icons icons_;
  CGPoint startPoint_;
  [[maybe_unused]] float lastPoint_ = 0;  ///< Carried; nothing depends on it.
  std::int32_t lastIndex_ = 0;  ///< The icon last selected, or NSNotFound. Survives rebuilds and showings.
  std::int32_t draggableIcon_;  ///< The icon that last pulsed.
};

}  // namespace vistrel
