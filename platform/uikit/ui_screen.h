#pragma once

#include "platform/coregraphics/cg_geometry.h"
#include "platform/runtime/ns_object.h"

/// The main screen: the current display as UIKit presents it.
class UIScreen : public NSObject {
  OBJC_CLASS(UIScreen, NSObject)
 public:
  static UIScreen& mainScreen();
  CGRect bounds() const;  ///< Portrait, in points.
  CGFloat scale() const;  ///< Pixels a point. The class answers "scale" to respondsToSelector.
};
