#include "platform/quartzcore/screen_changes.h"

#include <algorithm>

namespace {

std::uint64_t changeCount = 0;
std::uint64_t changeCountOfTrees = 0;

/// Never destroyed: layers may outlive everything else and still speak up.
std::vector<CALayer*>& animating() {
  static auto& layers = *new std::vector<CALayer*>();
  return layers;
}

}  // namespace

void noteScreenChange() { ++changeCount; }

std::uint64_t screenChangeCount() { return changeCount; }

void noteTreeChange() {
  ++changeCountOfTrees;
  noteScreenChange();
}

std::uint64_t treeChangeCount() { return changeCountOfTrees; }

void noteAnimationsBegan(CALayer& layer) { animating().push_back(&layer); }

void noteAnimationsEnded(CALayer& layer) { std::erase(animating(), &layer); }

const std::vector<CALayer*>& animatingLayers() { return animating(); }

bool anyAnimationRuns() { return !animating().empty(); }
