#include "switcher/views.h"

#include "switcher/layout.h"

namespace vistrel {

CGSize bandSize(const std::shared_ptr<UIImageView>& view) {
  if (!view || !view->image()) return CGSizeZero;
  const float scale = deviceScale();
  const CGSize pixels = view->image()->size();
  return {pixels.width / scale, pixels.height / scale};
}

}  // namespace vistrel
