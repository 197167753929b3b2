#include "host/inspection.h"

#include <array>

#include "platform/uikit/ui_window.h"

namespace host {
namespace {

using Corners = std::array<CGPoint, 4>;

Corners cornersThrough(CGAffineTransform toScreen, CGRect bounds) {
  const auto [left, top] = bounds.origin;
  const CGFloat right = CGRectGetMaxX(bounds), bottom = CGRectGetMaxY(bounds);
  Corners corners{{{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
  for (CGPoint& corner : corners) corner = CGPointApplyAffineTransform(corner, toScreen);
  return corners;
}

Json describeCorners(const Corners& corners) {
  Json points = Json::array();
  for (CGPoint corner : corners) points.push_back(jsonPoint(corner));
  return points;
}

/// The search for one point, from the windows down.
class Inspector {
 public:
  explicit Inspector(CGPoint point) : point_(point) {}

  /// Notes `view`, where it contains the point, and whatever in it does.
  void visit(const UIView& view, CGAffineTransform superToScreen, int depth) {
    if (view.hidden()) return;
    const CALayer& layer = view.layer();
    const CALayerGeometry geometry = layer.presentationAt(RunLoop::main().now());
    const CGAffineTransform toScreen =
        CGAffineTransformConcat(CALayer::transformToSuperlayer(geometry), superToScreen);
    if (!CGAffineTransformIsInvertible(toScreen)) return;
    const CGPoint inside = CGPointApplyAffineTransform(point_, CGAffineTransformInvert(toScreen));
    const bool contains = CGRectContainsPoint(geometry.bounds, inside);
    if (contains) {
      views_.push_back({{"class", view.isa().name()},
                        {"frame", jsonRect(CALayer::frameOf(geometry))},
                        {"alpha", jsonNumber(geometry.opacity)},
                        {"depth", depth},
                        {"corners", describeCorners(cornersThrough(toScreen, geometry.bounds))}});
    } else if (layer.masksToBounds()) {
      return;
    }
    for (auto& subview : view.subviews()) visit(*subview, toScreen, depth + 1);
  }

  Json takeViews() { return std::move(views_); }

 private:
  CGPoint point_;
  Json views_ = Json::array();
};

}  // namespace

Json inspect(CGPoint point) {
  Inspector inspector(point);
  for (const UIWindow* window : UIWindow::allWindows())
    inspector.visit(*window, CGAffineTransformIdentity, 0);
  return {{"point", jsonPoint(point)}, {"views", inspector.takeViews()}};
}

}  // namespace host
