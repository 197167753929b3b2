#include "platform/quartzcore/scene.h"

#include <algorithm>
#include <utility>

#include "platform/quartzcore/layer_paints.h"
#include "platform/quartzcore/screen_changes.h"

namespace {

/// Damage in more pieces than this is painted as one: their corners cost more than what lies between them.
constexpr int mostPieces = 16;
constexpr std::size_t nodesPerBlock = 32;

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

  // As they are now: drawing a layer may bring others about.
  const std::uint64_t changes = screenChangeCount(), treeChanges = treeChangeCount();
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
  treeChangesSeen_ = treeChanges;
  changesSeen_ = changes;
  return std::move(damage_);
}

std::vector<const Paint*> Scene::paintsIn(const PixelRegion& region) const {
  const PixelBox extents = region.extents();
  std::vector<const Paint*> paints;
  for (std::size_t block = 0; block < nodes_.blockBoxes.size(); ++block) {
    if (!nodes_.blockBoxes[block].intersects(extents)) continue;
    const Place begin = block * nodesPerBlock, end = std::min(begin + nodesPerBlock, nodes_.list.size());
    for (Place place = begin; place < end; ++place) {
      if (!nodes_.boxes[place].intersects(extents)) continue;
      for (const Paint& paint : nodes_.list[place].paints) paints.push_back(&paint);
    }
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
  nodes.boxes.resize(nodes.list.size());
  nodes.blockBoxes.resize((nodes.list.size() + nodesPerBlock - 1) / nodesPerBlock);
  for (Place place = 0; place < nodes.list.size(); ++place) {
    nodes.places.emplace(nodes.list[place].serial, place);
    nodes.boxes[place] = boxAround(nodes.list[place].paints);
    PixelBox& blockBox = nodes.blockBoxes[place / nodesPerBlock];
    blockBox = blockBox.united(nodes.boxes[place]);
  }
  return nodes;
}

void Scene::append(Nodes& nodes, const CALayer& layer, const Inherited& inherited,
                   const PixelBox& clip) const {
  const Place place = nodes.list.size();
  nodes.list.push_back({.layer = &layer, .serial = layer.serial(), .inherited = inherited, .clip = clip});
  collect(nodes.list[place]);
  if (nodes.list[place].isOpen) {
    // Copies, for the list may move as others are appended.
    const Inherited inheritance = nodes.list[place].inheritance;
    const PixelBox innerClip = nodes.list[place].innerClip;
    for (const auto& sublayer : layer.sublayers()) append(nodes, *sublayer, inheritance, innerClip);
  }
  nodes.list[place].end = nodes.list.size();
}

// What has changed.

/// Ascending; a place may come twice.
std::vector<Scene::Place> Scene::changedPlaces() const {
  std::vector<Place> places;
  const auto addPlaceOf = [&](std::uint64_t serial) {
    const auto found = nodes_.places.find(serial);
    if (found != nodes_.places.end()) places.push_back(found->second);
    return found != nodes_.places.end();
  };
  auto changed = layersChangedSince(changesSeen_);
  const bool areKnown =
      changed && std::ranges::all_of(*changed, addPlaceOf) &&
      std::ranges::all_of(animatingLayers(), [&](CALayer* layer) { return addPlaceOf(layer->serial()); });
  if (areKnown) {
    std::ranges::sort(places);
    return places;
  }
  // Very many, or some that lie in a node that shows all of its subtree.
  places.clear();
  for (Place place = 0; place < nodes_.list.size(); ++place) {
    const Node& node = nodes_.list[place];
    const auto changedAt = node.isOpen ? node.layer->changedAt() : node.layer->subtreeChangedAt();
    if (changedAt > changesSeen_) places.push_back(place);
  }
  return places;
}

bool Scene::updateInPlace() {
  for (const Place place : changedPlaces()) {
    const Node& node = nodes_.list[place];
    if (!refresh(place, node.inherited, node.clip)) return false;
  }
  return true;
}

bool Scene::refresh(Place place, Inherited inherited, PixelBox clip) {
  Node& node = nodes_.list[place];
  const Node before = std::exchange(
      node,
      {.layer = node.layer, .serial = node.serial, .inherited = inherited, .clip = clip, .end = node.end});
  collect(node);
  if (node.paints != before.paints) {
    damage(nodes_.boxes[place]);
    nodes_.setBox(place, boxAround(node.paints));
    damage(nodes_.boxes[place]);
  }
  if (node.isOpen != before.isOpen) return false;
  if (node.inheritance == before.inheritance && node.innerClip == before.innerClip) return true;
  for (Place inner = place + 1; inner < node.end; inner = nodes_.list[inner].end)
    if (!refresh(inner, node.inheritance, node.innerClip)) return false;
  return true;
}

void Scene::Nodes::setBox(Place place, const PixelBox& box) {
  boxes[place] = box;
  const Place begin = place / nodesPerBlock * nodesPerBlock,
              end = std::min(begin + nodesPerBlock, boxes.size());
  PixelBox& blockBox = blockBoxes[place / nodesPerBlock];
  blockBox = {};
  for (Place other = begin; other < end; ++other) blockBox = blockBox.united(boxes[other]);
}

// Damage.

/// The nodes that both lists have in the same order paint what they painted, one over the other, unless they
/// have changed themselves. The others have come, gone or changed places.
void Scene::damageDifferencesTo(const Nodes& before) {
  Place next = 0;  // Of those before.
  for (Place place = 0; place < nodes_.list.size(); ++place) {
    const auto found = before.places.find(nodes_.list[place].serial);
    if (found == before.places.end() || found->second < next) {
      damage(nodes_.boxes[place]);
      continue;
    }
    for (; next < found->second; ++next) damage(before.boxes[next]);
    if (before.list[next].paints != nodes_.list[place].paints) {
      damage(before.boxes[next]);
      damage(nodes_.boxes[place]);
    }
    ++next;
  }
  for (; next < before.list.size(); ++next) damage(before.boxes[next]);
}

void Scene::damage(const PixelBox& box) {
  damage_.unite(box.intersected(screen_));
  if (damage_.boxCount() > mostPieces) damage_ = PixelRegion(damage_.extents());
}
