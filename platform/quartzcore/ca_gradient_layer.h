#pragma once

#include <vector>

#include "platform/quartzcore/ca_layer.h"

/// A layer filled with a vertical gradient, location 0 at the top edge and 1 at the bottom edge.
class CAGradientLayer : public CALayer {
  OBJC_CLASS(CAGradientLayer, CALayer)
 public:
  static std::shared_ptr<CAGradientLayer> layer() { return std::make_shared<CAGradientLayer>(); }

  const std::vector<CGColor>& colors() const { return colors_; }
  void setColors(std::vector<CGColor> colors) { assign(colors_, std::move(colors)); }
  /// One a colour, ascending; where there are none the colours are spread evenly.
  const std::vector<CGFloat>& locations() const { return locations_; }
  void setLocations(std::vector<CGFloat> locations) { assign(locations_, std::move(locations)); }

 private:
  std::vector<CGColor> colors_;
  std::vector<CGFloat> locations_;
};
