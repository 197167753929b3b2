#include "strips/slots.h"

#include "switcher/views.h"

namespace vistrel {

void applyLook(UIView& item, Look look) {
  item.setCenter(CGPointMake(item.center().x, look.centerY));
  item.setAlpha(look.alpha);
  scaleLayer(item, look.scale);
}

void removeAllSubviews(UIView& view) {
  const auto present = view.subviews();
  for (const auto& subview : present) subview->removeFromSuperview();
}

}  // namespace vistrel
