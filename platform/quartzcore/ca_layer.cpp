#include "platform/quartzcore/ca_layer.h"

#include <algorithm>
#include <cmath>

#include "platform/quartzcore/layer_cache.h"

namespace {

std::uint64_t layersMade = 0;

CGFloat between(CGFloat from, CGFloat to, float progress) { return from + (to - from) * progress; }
CGPoint between(CGPoint from, CGPoint to, float progress) {
  return {between(from.x, to.x, progress), between(from.y, to.y, progress)};
}
CGRect between(CGRect from, CGRect to, float progress) {
  return {between(from.origin, to.origin, progress),
          {between(from.size.width, to.size.width, progress),
           between(from.size.height, to.size.height, progress)}};
}
CATransform3D between(const CATransform3D& from, const CATransform3D& to, float progress) {
  return interpolate(from, to, progress);
}

/// The size of the upright rectangle around one of `size` that has gone through the linear part of
/// `transform`.
CGSize sizeThrough(CGAffineTransform transform, CGSize size) {
  return {std::abs(transform.a) * size.width + std::abs(transform.c) * size.height,
          std::abs(transform.b) * size.width + std::abs(transform.d) * size.height};
}

bool hasArea(CGRect rect) { return rect.size.width > 0 && rect.size.height > 0; }

}  // namespace

CALayer::CALayer() : serial_(++layersMade) {}

CALayer::~CALayer() {
  for (auto& sublayer : sublayers_) sublayer->superlayer_ = nullptr;
  if (isAnimating()) noteAnimationsEnded(*this);
  for (auto& animation : animations_) animation.block->animationRemoved();
}

// Changes and animations.

template <class T>
void CALayer::change(Key key, T CALayerGeometry::*field, const T& value) {
  if (model_.*field == value) return;
  CAAnimationBlock* block = CAAnimationBlock::current();
  if (!block || !delegate_ || !(block->duration() > 0)) {
    removeAnimation(key);
    model_.*field = value;
    noteChange();
    return;
  }
  const CFTimeInterval now = RunLoop::main().now();
  const CALayerGeometry onScreen = presentationAt(now);
  removeAnimation(key);
  if (!isAnimating()) noteAnimationsBegan(*this);
  animations_.push_back({key, onScreen, now, block->duration(), block->timing(), block->shared_from_this()});
  model_.*field = value;
  noteChange();
  block->animationAdded(std::static_pointer_cast<CALayer>(shared_from_this()));
}

void CALayer::removeAnimation(Key key) {
  auto found = std::ranges::find(animations_, key, &Animation::key);
  if (found == animations_.end()) return;
  auto block = std::move(found->block);
  animations_.erase(found);
  if (!isAnimating()) noteAnimationsEnded(*this);
  block->animationRemoved();
}

void CALayer::endAnimationsOf(const CAAnimationBlock& block) {
  const auto ended =
      std::erase_if(animations_, [&](const Animation& animation) { return animation.block.get() == &block; });
  if (ended > 0 && !isAnimating()) noteAnimationsEnded(*this);
  noteChange();  // Its last moment on screen was short of the end.
}

void CALayer::noteChange() {
  noteScreenChange(*this);
  noteChangeAt(screenChangeCount());
}

void CALayer::noteLooksChange() {
  noteChange();
  looksChangedAt_ = changedAt_;
}

/// As a change that is yet to come: later than any that a renderer has seen.
void CALayer::noteMotion() { noteChangeAt(screenChangeCount() + 1); }

void CALayer::noteChangeAt(std::uint64_t count) {
  changedAt_ = count;
  for (CALayer* layer = this; layer; layer = layer->superlayer_) layer->subtreeChangedAt_ = count;
}

LayerCache& CALayer::cache() const {
  if (!cache_) cache_ = std::make_shared<LayerCache>();
  return *cache_;
}

CALayerGeometry CALayer::presentationAt(CFTimeInterval time) const {
  CALayerGeometry result = model_;
  for (const Animation& animation : animations_) {
    const float progress = animation.progressAt(time);
    if (progress >= 1) continue;
    auto run = [&](auto CALayerGeometry::*field) {
      result.*field = between(animation.from.*field, model_.*field, progress);
    };
    switch (animation.key) {
      case Key::Position:
        run(&CALayerGeometry::position);
        break;
      case Key::Bounds:
        run(&CALayerGeometry::bounds);
        break;
      case Key::Transform:
        run(&CALayerGeometry::transform);
        break;
      case Key::Opacity:
        run(&CALayerGeometry::opacity);
        break;
    }
  }
  return result;
}

void CALayer::setPosition(CGPoint position) { change(Key::Position, &CALayerGeometry::position, position); }
void CALayer::setBounds(CGRect bounds) { change(Key::Bounds, &CALayerGeometry::bounds, bounds); }
void CALayer::setTransform(const CATransform3D& transform) {
  change(Key::Transform, &CALayerGeometry::transform, transform);
}
void CALayer::setOpacity(CGFloat opacity) { change(Key::Opacity, &CALayerGeometry::opacity, opacity); }

// Geometry.

void CALayer::setFrame(CGRect frame) {
  const CGAffineTransform transform = CATransform3DGetAffineTransform(model_.transform);
  if (CGAffineTransformIsInvertible(transform))
    setBounds({model_.bounds.origin, sizeThrough(CGAffineTransformInvert(transform), frame.size)});
  setPosition({CGRectGetMidX(frame) - transform.tx, CGRectGetMidY(frame) - transform.ty});
}

CGRect CALayer::frameOf(const CALayerGeometry& geometry) {
  const CGAffineTransform transform = CATransform3DGetAffineTransform(geometry.transform);
  const CGSize size = sizeThrough(transform, geometry.bounds.size);
  return {{geometry.position.x + transform.tx - size.width * 0.5f,
           geometry.position.y + transform.ty - size.height * 0.5f},
          size};
}

CGAffineTransform CALayer::transformToSuperlayer(const CALayerGeometry& geometry) {
  CGAffineTransform result = CATransform3DGetAffineTransform(geometry.transform);
  const CGPoint center{CGRectGetMidX(geometry.bounds), CGRectGetMidY(geometry.bounds)};
  result.tx += geometry.position.x - (result.a * center.x + result.c * center.y);
  result.ty += geometry.position.y - (result.b * center.x + result.d * center.y);
  return result;
}

// Tree.

void CALayer::addSublayer(std::shared_ptr<CALayer> layer) {
  insertSublayer(std::move(layer), sublayers_.size());
}

void CALayer::insertSublayer(std::shared_ptr<CALayer> layer, std::size_t index) {
  if (!layer) return;
  for (const CALayer* ancestor = this; ancestor; ancestor = ancestor->superlayer_)
    if (ancestor == layer.get()) return;
  layer->removeFromSuperlayer();
  layer->superlayer_ = this;
  const auto place = std::min(index, sublayers_.size());
  sublayers_.insert(sublayers_.begin() + static_cast<std::ptrdiff_t>(place), std::move(layer));
  noteTreeChange();
  noteChange();
}

void CALayer::removeFromSuperlayer() {
  if (!superlayer_) return;
  auto& siblings = superlayer_->sublayers_;
  superlayer_->noteChange();
  superlayer_ = nullptr;
  auto place = std::ranges::find(siblings, this, &std::shared_ptr<CALayer>::get);
  const auto self = std::move(*place);  // May be the last to own this layer.
  siblings.erase(place);
  noteTreeChange();
}

// Content.

/// Noted in any case: a view may have nothing to draw, and so leave the mark standing, until it has.
void CALayer::setNeedsDisplay() {
  needsDisplay_ = true;
  noteLooksChange();
}

CGRect CALayer::contentBounds() const {
  if (hasArea(model_.bounds)) return model_.bounds;
  const auto shrinking = std::ranges::find(animations_, Key::Bounds, &Animation::key);
  return shrinking == animations_.end() ? model_.bounds : shrinking->from.bounds;
}

const CGImageRef& CALayer::displayIfNeeded(CGFloat scale) const {
  const CGRect bounds = contentBounds();
  if (!delegate_ || !delegate_->drawsContent() || !hasArea(bounds)) {
    drawn_ = nullptr;
    return drawn_;
  }
  if (drawn_ && !needsDisplay_ && drawnSize_ == bounds.size && drawnScale_ == scale) return drawn_;
  CGContext context(bounds.size, scale);
  context.concat(CGAffineTransformMakeTranslation(-bounds.origin.x, -bounds.origin.y));
  delegate_->drawLayer(context);
  drawn_ = CGImage::withoutNeedlessAlpha(context.createImage());
  drawnSize_ = bounds.size;
  drawnScale_ = scale;
  needsDisplay_ = false;
  return drawn_;
}
