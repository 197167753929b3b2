#pragma once

#include <memory>
#include <vector>

#include "platform/foundation/ns_number.h"
#include "platform/uikit/ui_label.h"
#include "platform/uikit/ui_orientation.h"

namespace vistrel {

/// The strip of application names above or below the icons; at most one exists, a subview of the window for
/// good.
///
/// Takes no touches of its own: the icon strip passes its touches on. The name at or to the right of the
/// finger stands out.
class NameDragger : public UIView {
  OBJC_CLASS(NameDragger, UIView)
 public:
  using Names = std::vector<std::shared_ptr<UILabel>>;

  explicit NameDragger(CGRect frame);

  /// One label an application, in the list's order; also the strip's only subviews.
  const Names& names() const { return names_; }
  void setNames(Names names) { names_ = std::move(names); }
  /// Where the touch began, in the strip's coordinates.
  CGPoint startPoint() const { return startPoint_; }
  void setStartPoint(CGPoint point) { startPoint_ = point; }

  /// Builds every name afresh from the window's list.
  void shuffleNames();
  /// Shrinks the names to their resting size at once: the switcher opens for a pick.
  void prepForActivatorActivation();

  void touchesBegan(const UITouchSet& touches, UIEvent* event) override;
  void touchesMoved(const UITouchSet& touches, UIEvent* event) override;
  void touchesEnded(const UITouchSet& touches, UIEvent* event) override;
  /// Sent half a second after a name was selected; nothing follows from it.
  void enlargeNameAtIndex(const NSNumber& index);

  void didRotateFromInterfaceOrientation(UIInterfaceOrientation from);
  static bool shouldAutorotateToInterfaceOrientation(int orientation);

 private:
  int selectionAt(float x) const;

  Names names_;
  CGPoint startPoint_;
  [[maybe_unused]] float lastPoint_ = 0;  ///< Carried; nothing depends on it.
  float lastIndex_ = 0;                   ///< The name last selected. Survives rebuilds and showings.
};

}  // namespace vistrel
