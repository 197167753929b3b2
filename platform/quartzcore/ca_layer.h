#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "platform/coregraphics/cg_color.h"
#include "platform/coregraphics/cg_context.h"
#include "platform/coregraphics/cg_image.h"
#include "platform/coregraphics/cg_path.h"
#include "platform/quartzcore/ca_animation_block.h"
#include "platform/quartzcore/ca_filter.h"
#include "platform/quartzcore/ca_transform3d.h"
#include "platform/quartzcore/screen_changes.h"
#include "platform/runtime/ns_object.h"

/// What backs a layer: a view. Its layer's changes animate inside animation blocks.
class CALayerDelegate {
 public:
  virtual ~CALayerDelegate() = default;
  /// True when drawLayer has something to draw.
  virtual bool drawsContent() const { return false; }
  /// Draws the layer's own content in its bounds' coordinates, whenever it was marked with setNeedsDisplay.
  virtual void drawLayer(CGContext&) const {}
};

/// A colour tiled from a picture instead of a flat one.
struct CAPattern {
  CGImageRef image;
  CGFloat scale = 1;  ///< Pixels of the picture to a point.
  bool operator==(const CAPattern&) const = default;
};

/// What the renderer keeps of a layer's looks from frame to frame.
struct LayerCache;

/// The animatable part of a layer.
struct CALayerGeometry {
  CGPoint position;  ///< Of the bounds' centre, in the superlayer's coordinates.
  CGRect bounds;
  CATransform3D transform;
  CGFloat opacity = 1;
  bool operator==(const CALayerGeometry&) const = default;
};

/// A rectangle with content, a place in its superlayer and sublayers of its own.
///
/// It holds model values and running animations; what is on screen is a pure function of both and the time.
/// A change inside an open animation block starts from the value now on screen. A change outside of one takes
/// effect at once and ends the property's running animation. Setting a property to the value that it has is
/// no change. Layers without a delegate never animate.
class CALayer : public NSObject {
  OBJC_CLASS(CALayer, NSObject)
 public:
  CALayer();
  ~CALayer() override;

  // Geometry, in points.
  CGPoint position() const { return model_.position; }
  void setPosition(CGPoint position);
  CGRect bounds() const { return model_.bounds; }
  void setBounds(CGRect bounds);
  const CATransform3D& transform() const { return model_.transform; }
  void setTransform(const CATransform3D& transform);
  /// Derived: the upright rectangle around the transformed bounds. Setting it moves the position and, through
  /// the transform's inverse, sizes the bounds; under a transform without inverse only the position moves.
  CGRect frame() const { return frameOf(model_); }
  void setFrame(CGRect frame);
  static CGRect frameOf(const CALayerGeometry& geometry);
  /// From the layer's coordinates to its superlayer's.
  static CGAffineTransform transformToSuperlayer(const CALayerGeometry& geometry);

  const CALayerGeometry& model() const { return model_; }
  /// What is on screen at `time`.
  CALayerGeometry presentationAt(CFTimeInterval time) const;
  bool isAnimating() const { return !animations_.empty(); }

  // Looks.
  CGFloat opacity() const { return model_.opacity; }  ///< 0 to 1; sublayers are multiplied by it.
  void setOpacity(CGFloat opacity);
  bool hidden() const { return hidden_; }
  void setHidden(bool hidden) { assign(hidden_, hidden); }
  const std::optional<CGColor>& backgroundColor() const { return backgroundColor_; }
  void setBackgroundColor(std::optional<CGColor> color) { assign(backgroundColor_, color); }
  const std::optional<CAPattern>& backgroundPattern() const { return backgroundPattern_; }
  void setBackgroundPattern(std::optional<CAPattern> pattern) {
    assign(backgroundPattern_, std::move(pattern));
  }
  CGFloat cornerRadius() const { return cornerRadius_; }
  void setCornerRadius(CGFloat radius) { assign(cornerRadius_, radius); }
  bool masksToBounds() const { return masksToBounds_; }
  void setMasksToBounds(bool masks) { assign(masksToBounds_, masks); }
  /// A picture stretched over the bounds; null for none.
  const CGImageRef& contents() const { return contents_; }
  void setContents(CGImageRef contents) { assign(contents_, std::move(contents)); }
  const CAFilterArray& filters() const { return filters_; }
  void setFilters(CAFilterArray filters) { assign(filters_, std::move(filters)); }
  bool shouldRasterize() const { return shouldRasterize_; }  ///< A hint to cache; the picture is the same.
  void setShouldRasterize(bool rasterize) { shouldRasterize_ = rasterize; }

  // Shadow: of the shadow path, or of the bounds where there is none; masked where the layer masks to its
  // bounds.
  CGColor shadowColor() const { return shadowColor_; }
  void setShadowColor(CGColor color) { assign(shadowColor_, color); }
  CGFloat shadowOpacity() const { return shadowOpacity_; }
  void setShadowOpacity(CGFloat opacity) { assign(shadowOpacity_, opacity); }
  CGSize shadowOffset() const { return shadowOffset_; }
  void setShadowOffset(CGSize offset) { assign(shadowOffset_, offset); }
  CGFloat shadowRadius() const { return shadowRadius_; }  ///< Standard deviation of its blur, in points.
  void setShadowRadius(CGFloat radius) { assign(shadowRadius_, radius); }
  const std::optional<CGPath>& shadowPath() const { return shadowPath_; }
  void setShadowPath(std::optional<CGPath> path) { assign(shadowPath_, path); }

  // Tree, back to front. A superlayer owns its sublayers.
  const std::vector<std::shared_ptr<CALayer>>& sublayers() const { return sublayers_; }
  CALayer* superlayer() const { return superlayer_; }
  /// Each first takes the layer from where it was. An index past the end means the front. Null, and a layer
  /// that this one lies in, are ignored.
  void addSublayer(std::shared_ptr<CALayer> layer);
  void insertSublayer(std::shared_ptr<CALayer> layer, std::size_t index);
  void removeFromSuperlayer();

  CALayerDelegate* delegate() const { return delegate_; }
  void setDelegate(CALayerDelegate* delegate) { assign(delegate_, delegate); }
  /// Has the delegate's content drawn afresh before the next frame.
  void setNeedsDisplay();
  /// The delegate's content as last drawn, at `scale` pixels a point; drawn now if it is out of date. Null
  /// when there is none.
  const CGImageRef& displayIfNeeded(CGFloat scale) const;
  /// What that content covers: the bounds or, while an animation shrinks them to nothing, those that it
  /// started from.
  CGRect contentBounds() const;

  /// Called by the block that owns them: ends the animations of `block`.
  void endAnimationsOf(const CAAnimationBlock& block);

  // For the renderer. When something last changed, as screenChangeCount() counted it.
  std::uint64_t changedAt() const { return changedAt_; }                ///< This layer, its place included.
  std::uint64_t looksChangedAt() const { return looksChangedAt_; }      ///< Its looks alone.
  std::uint64_t subtreeChangedAt() const { return subtreeChangedAt_; }  ///< It, or a layer below it.
  /// Has moved on with time: it and its superlayers count as changed, though nobody set anything.
  void noteMotion();
  std::uint64_t serial() const { return serial_; }  ///< No other layer has, or had, the same.
  LayerCache& cache() const;

 protected:
  /// Sets a property of a layer's looks and notes that the screen may change. Nothing animates.
  template <class T>
  void assign(T& property, T value) {
    if constexpr (std::equality_comparable<T>) {
      if (property == value) return;
    }
    property = std::move(value);
    noteLooksChange();
  }

 private:
  enum class Key { Position, Bounds, Transform, Opacity };
  struct Animation {
    Key key;
    CALayerGeometry from;  // Only the key's field counts.
    CFTimeInterval beginTime;
    CFTimeInterval duration;
    CAMediaTimingFunction timing;
    std::shared_ptr<CAAnimationBlock> block;

    float progressAt(CFTimeInterval time) const {
      return timing.progressAt(static_cast<float>((time - beginTime) / duration));
    }
  };
  template <class T>
  void change(Key key, T CALayerGeometry::*field, const T& value);
  void removeAnimation(Key key);
  void noteChange();
  void noteLooksChange();
  void noteChangeAt(std::uint64_t count);

  CALayerGeometry model_;
  std::vector<Animation> animations_;  // At most one a key.
  bool hidden_ = false;
  bool masksToBounds_ = false;
  bool shouldRasterize_ = false;
  std::optional<CGColor> backgroundColor_;
  std::optional<CAPattern> backgroundPattern_;
  CGFloat cornerRadius_ = 0;
  CGImageRef contents_;
  CAFilterArray filters_;
  CGColor shadowColor_{0, 0, 0, 1};
  CGFloat shadowOpacity_ = 0;
  CGSize shadowOffset_{0, -3};
  CGFloat shadowRadius_ = 3;
  std::optional<CGPath> shadowPath_;
  std::vector<std::shared_ptr<CALayer>> sublayers_;
  CALayer* superlayer_ = nullptr;        // Owns this layer.
  CALayerDelegate* delegate_ = nullptr;  // The view that owns this layer.
  // What the delegate drew, kept until it is out of date.
  mutable bool needsDisplay_ = true;
  mutable CGImageRef drawn_;
  mutable CGSize drawnSize_;
  mutable CGFloat drawnScale_ = 0;
  mutable std::shared_ptr<LayerCache> cache_;
  std::uint64_t changedAt_ = 0, looksChangedAt_ = 0, subtreeChangedAt_ = 0;
  const std::uint64_t serial_;
};
