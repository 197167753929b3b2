#include "platform/quartzcore/scene.h"

#include <unordered_map>
#include <utility>

#include "platform/quartzcore/layer_paints.h"
#include "platform/quartzcore/screen_changes.h"

namespace {

/// Damage in more pieces than this is painted as one: their corners cost more than what lies between them.
constexpr int mostPieces = 16;

std::vector<std::uint64_t> serialsOf(const std::vector<const CALayer*>& layers) {
  std::vector<std::uint64_t> serials;
  for (const CALayer* layer : layers) serials.push_back(layer->serial());
  return serials;
}

PixelBox boxAround(const std::vector<Paint>& paints) {
  PixelBox box;
  for (const Paint& paint : paints) box = box.united(paint.box);
  return box;
}

}  // namespace

PixelRegion Scene::update(const std::vector<const CALayer*>& backToFront, const PixelBox& screen,
                          const FrameMoment& moment) {
  const bool sameScreen = screen == screen_ && moment.scale == moment_.scale;
  const auto roots = serialsOf(backToFront);
  const bool sameTrees = sameScreen && roots == roots_ && treeChangeCount() == treeChangesSeen_;
  damage_ = {};
  if (sameTrees && !mayHaveChanged(moment)) return {};

  const std::uint64_t changes = screenChangeCount();
  for (CALayer* layer : animatingLayers()) layer->noteMotion();
  moment_ = moment;
  screen_ = screen;
  if (!sameTrees || !updateInPlace()) {
    const Nodes before = std::exchange(nodes_, build(backToFront));
    if (sameScreen)
      damageDifferencesTo(before);
    else
      damage(screen_);
  }
  roots_ = roots;
  treeChangesSeen_ = treeChangeCount();
  changesSeen_ = changes;
  return std::move(damage_);
}

std::vector<const Paint*> Scene::paintsIn(const PixelRegion& region) const {
  const PixelBox extents = region.extents();
  std::vector<const Paint*> paints;
  for (std::size_t i = 0; i < nodes_.boxes.size(); ++i) {
    if (!nodes_.boxes[i].intersects(extents)) continue;
    for (const Paint& paint : nodes_.list[i].paints) paints.push_back(&paint);
  }
  return paints;
}

bool Scene::mayHaveChanged(const FrameMoment& moment) const {
  return screenChangeCount() != changesSeen_ || (anyAnimationRuns() && moment.time != moment_.time);
}

void Scene::collect(Node& node) const {
  node.paints.clear();
  node.isOpen = false;
  const PlacedLayer placed(*node.layer, node.inherited, moment_);
  if (!placed.visible()) return;
  node.inheritance = placed.inheritance();
  node.innerClip = node.clip;
  node.isOpen =
      collectPaints(placed, node.inherited, moment_, node.innerClip, node.paints) == Sublayers::Apart;
}

// All anew.

Scene::Nodes Scene::build(const std::vector<const CALayer*>& backToFront) const {
  Nodes nodes;
  for (const CALayer* layer : backToFront) append(nodes, *layer, inheritedByRoots(moment_.scale), screen_);
  return nodes;
}

void Scene::append(Nodes& nodes, const CALayer& layer, const Inherited& inherited,
                   const PixelBox& clip) const {
  const std::size_t index = nodes.list.size();
  Node& node = nodes.list.emplace_back(
      Node{.layer = &layer, .serial = layer.serial(), .inherited = inherited, .clip = clip});
  collect(node);
  nodes.boxes.push_back(boxAround(node.paints));
  if (node.isOpen) {
    const Inherited inheritance = node.inheritance;  // The node moves as others are appended.
    const PixelBox innerClip = node.innerClip;
    for (const auto& sublayer : layer.sublayers()) append(nodes, *sublayer, inheritance, innerClip);
  }
  nodes.list[index].end = nodes.list.size();
}

// What has changed.

bool Scene::updateInPlace() {
  const Inherited inherited = inheritedByRoots(moment_.scale);
  for (std::size_t root = 0; root < nodes_.list.size(); root = nodes_.list[root].end)
    if (!updateSubtree(root, inherited, screen_)) return false;
  return true;
}

bool Scene::updateSubtree(std::size_t index, const Inherited& inherited, const PixelBox& clip) {
  Node& node = nodes_.list[index];
  const bool moved = node.inherited != inherited || node.clip != clip;
  if (!moved && node.layer->subtreeChangedAt() <= changesSeen_) return true;

  if (moved || node.layer->changedAt() > changesSeen_ || !node.isOpen) {
    const bool wasOpen = node.isOpen;
    const std::vector<Paint> before = std::move(node.paints);
    node.inherited = inherited;
    node.clip = clip;
    collect(node);
    if (node.paints != before) {
      damage(nodes_.boxes[index]);
      nodes_.boxes[index] = boxAround(node.paints);
      damage(nodes_.boxes[index]);
    }
    if (node.isOpen != wasOpen) return false;
  }
  for (std::size_t inner = index + 1; inner < node.end; inner = nodes_.list[inner].end)
    if (!updateSubtree(inner, node.inheritance, node.innerClip)) return false;
  return true;
}

// Damage.

/// The nodes that both lists have in the same order paint what they painted, one over the other, unless they
/// have changed themselves. The others have come, gone or changed places.
void Scene::damageDifferencesTo(const Nodes& before) {
  std::unordered_map<std::uint64_t, std::size_t> places;
  for (std::size_t i = 0; i < before.list.size(); ++i) places.emplace(before.list[i].serial, i);
  std::size_t next = 0;  // Of those before.
  for (std::size_t i = 0; i < nodes_.list.size(); ++i) {
    const auto found = places.find(nodes_.list[i].serial);
    if (found == places.end() || found->second < next) {
      damage(nodes_.boxes[i]);
      continue;
    }
    for (; next < found->second; ++next) damage(before.boxes[next]);
    if (before.list[next].paints != nodes_.list[i].paints) {
      damage(before.boxes[next]);
      damage(nodes_.boxes[i]);
    }
    ++next;
  }
  for (; next < before.list.size(); ++next) damage(before.boxes[next]);
}

void Scene::damage(const PixelBox& box) {
  damage_.unite(box.intersected(screen_));
  if (damage_.boxCount() > mostPieces) damage_ = PixelRegion(damage_.extents());
}
