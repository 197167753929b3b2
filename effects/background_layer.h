#pragma once

#include <memory>

#include "platform/quartzcore/ca_gradient_layer.h"

namespace vistrel {

/// Makes gradients, top to bottom, of the two colours that the user has chosen at that moment. The caller
/// sizes and places them.
class BackgroundLayer : public NSObject {
  OBJC_CLASS(BackgroundLayer, NSObject)
 public:
  /// From the top colour to the bottom colour.
  static std::shared_ptr<CAGradientLayer> blueGradient();
  /// A thin band of the top colour at the top edge, the bottom colour below.
  static std::shared_ptr<CAGradientLayer> greyGradient();
};

}  // namespace vistrel
