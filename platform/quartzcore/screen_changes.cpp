#include "platform/quartzcore/screen_changes.h"

#include <algorithm>
#include <array>

#include "platform/quartzcore/ca_layer.h"

namespace {

/// As many as a frame that moves a few things changes.
constexpr std::size_t rememberedChanges = 64;

std::uint64_t changeCount = 0;
std::uint64_t changeCountOfTrees = 0;
constexpr std::uint64_t noLayer = 0;
/// The layer of change n at n % rememberedChanges.
std::array<std::uint64_t, rememberedChanges> changedLayers;

void note(std::uint64_t serial) { changedLayers[++changeCount % rememberedChanges] = serial; }

/// Never destroyed: layers may outlive everything else and still speak up.
std::vector<CALayer*>& animating() {
  static auto& layers = *new std::vector<CALayer*>();
  return layers;
}

}  // namespace

void noteScreenChange(const CALayer& layer) { note(layer.serial()); }

std::uint64_t screenChangeCount() { return changeCount; }

std::optional<std::vector<std::uint64_t>> layersChangedSince(std::uint64_t count) {
  if (changeCount - count > rememberedChanges) return std::nullopt;
  std::vector<std::uint64_t> serials;
  while (count < changeCount) serials.push_back(changedLayers[++count % rememberedChanges]);
  return serials;
}

void noteTreeChange() {
  ++changeCountOfTrees;
  note(noLayer);
}

std::uint64_t treeChangeCount() { return changeCountOfTrees; }

void noteAnimationsBegan(CALayer& layer) { animating().push_back(&layer); }

void noteAnimationsEnded(CALayer& layer) { std::erase(animating(), &layer); }

const std::vector<CALayer*>& animatingLayers() { return animating(); }

bool anyAnimationRuns() { return !animating().empty(); }
