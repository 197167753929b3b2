#pragma once

#include <cstdint>
#include <optional>
#include <vector>

class CALayer;

/// Whether there may be more to see on the screen than when it was last drawn, known without drawing it.
/// While the count stays and no animation runs, the screen looks the same.

/// Something of a layer that a frame could show has changed.
void noteScreenChange(const CALayer& layer);
/// Grows by one with every change noted.
std::uint64_t screenChangeCount();
/// The serial numbers of the layers that have changed since the count was `count`, some of them more than
/// once; nothing where that is too long ago to tell.
std::optional<std::vector<std::uint64_t>> layersChangedSince(std::uint64_t count);

/// Layers have come into a tree, have left one, or have other places in it: a change as well.
void noteTreeChange();
/// Grows with every such change.
std::uint64_t treeChangeCount();

/// The first of a layer's animations has begun, or its last one has ended. The layer says so before it ceases
/// to exist.
void noteAnimationsBegan(CALayer& layer);
void noteAnimationsEnded(CALayer& layer);
const std::vector<CALayer*>& animatingLayers();
bool anyAnimationRuns();
