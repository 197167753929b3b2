#pragma once

#include "platform/quartzcore/ca_layer.h"
#include "platform/quartzcore/device_box.h"
#include "platform/quartzcore/shadow.h"

/// Where a frame is drawn: `scale` pixels a point, as things look at `time`.
struct FrameMoment {
  CGFloat scale;
  CFTimeInterval time;
};

/// What a layer inherits of those that it lies in.
struct Inherited {
  cairo_matrix_t toDevice{};  ///< From the superlayer's coordinates to the device's pixels.
  CGFloat opacity = 1;
  bool operator==(const Inherited& other) const;
};

/// For the layers at the roots of the trees: points to pixels.
Inherited inheritedByRoots(CGFloat scale);

/// A layer somewhere in the tree, as it looks at one time. Internal to the renderer.
///
/// One that is only moved on its way to the device lies on whole pixels: it begins at the nearest one, and
/// takes as many as its size touches. What lies in it moves along.
struct PlacedLayer {
  PlacedLayer(const CALayer& layer, const Inherited& inherited, const FrameMoment& moment);

  /// False where there is nothing to see of it or of what lies in it.
  bool visible() const;
  Inherited inheritance() const { return {toDevice, opacity}; }
  /// The same so many device pixels to the right and below.
  PlacedLayer moved(int x, int y) const;
  RectangleShadow shadow() const;
  /// Standard deviation, in points, of the blur that it goes through; 0 without one.
  CGFloat blur() const;
  /// Whether the layer's mask, if any, cuts along the edges of pixels.
  bool masksWholePixels() const { return onWholePixels && !(layer.cornerRadius() > 0); }
  /// Whether the layer's picture, if any, lies on it pixel by pixel.
  bool contentsFit() const;
  /// Where that picture is stretched to, in the layer's coordinates: over `area` or, where it fits, exactly
  /// as large as it is.
  CGRect contentsPlace() const;

  const CALayer& layer;
  CGFloat scale;  ///< Of the screen.
  CALayerGeometry geometry;
  cairo_matrix_t toDevice;
  CGFloat opacity;
  bool onWholePixels = false;
  CGRect area;       ///< The bounds as they are shown, in the layer's coordinates.
  DeviceBox bounds;  ///< The upright box around them, in device pixels.
};

bool sameMatrix(const cairo_matrix_t& one, const cairo_matrix_t& other);

/// False for what reaches further than the drawing library can count.
bool canBeDrawn(const DeviceBox& box);

/// Standard deviations, in pixels, of the blur that a layer goes through.
struct BlurSigma {
  double x, y;
  bool operator==(const BlurSigma&) const = default;
};
BlurSigma blurSigma(const PlacedLayer& placed);

/// The pixels that a layer's content and sublayers can touch.
DeviceBox extentOf(const PlacedLayer& placed, const FrameMoment& moment);
