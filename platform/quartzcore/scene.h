#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "platform/quartzcore/paint.h"
#include "platform/quartzcore/pixel_region.h"

/// The layers on a screen and what they are painted with, kept from frame to frame: a frame asks only the
/// layers that have changed since the last one. Internal to the renderer.
class Scene {
 public:
  /// Brings itself up to how the trees look at the moment, on a screen of these pixels. Returns what of the
  /// screen may look different since the last time; all of it at first.
  PixelRegion update(const std::vector<const CALayer*>& backToFront, const PixelBox& screen,
                     const FrameMoment& moment);

  /// Back to front, what is painted in and around `region`; valid until the next update.
  std::vector<const Paint*> paintsIn(const PixelRegion& region) const;

 private:
  /// A layer, at its turn in the order of painting. Those that lie in it follow, unless what it is painted
  /// with shows them, or there is nothing to see of them.
  struct Node {
    const CALayer* layer;  ///< Once trees have changed it may no longer exist.
    std::uint64_t serial;  ///< Of the layer.
    Inherited inherited;
    PixelBox clip{};
    std::size_t end = 0;  ///< The place behind the last node of the subtree.
    bool isOpen = false;  ///< Nodes of sublayers follow, with this inheritance and clip:
    Inherited inheritance{};
    PixelBox innerClip{};
    std::vector<Paint> paints{};
  };
  using Place = std::size_t;  ///< Of a node.
  struct Nodes {
    void setBox(Place place, const PixelBox& box);

    std::vector<Node> list;
    std::unordered_map<std::uint64_t, Place> places;  ///< By the serial number of the layer.
    // There may be very many nodes to ask for what they paint.
    std::vector<PixelBox> boxes;       ///< Around what each node paints,
    std::vector<PixelBox> blockBoxes;  ///< and around all of a block of nodes that follow one another.
  };

  bool mayHaveChanged(const FrameMoment& moment) const;
  void collect(Node& node) const;
  Nodes build(const std::vector<const CALayer*>& backToFront) const;
  void append(Nodes& nodes, const CALayer& layer, const Inherited& inherited, const PixelBox& clip) const;
  std::vector<Place> changedPlaces() const;
  /// Asks the layers that have changed. False when nodes have to come or go, for layers have come into sight
  /// or gone out of it.
  bool updateInPlace();
  /// Asks one layer, and those in it to which it hands down anything new. False as above.
  bool refresh(Place place, Inherited inherited, PixelBox clip);
  void damageDifferencesTo(const Nodes& before);
  void damage(const PixelBox& box);

  PixelBox screen_;
  FrameMoment moment_{};
  std::vector<std::uint64_t> roots_;  // Their serials.
  std::uint64_t changesSeen_ = 0, treeChangesSeen_ = 0;
  Nodes nodes_;
  PixelRegion damage_;
};
