#pragma once

#include <cstdint>
#include <vector>

class CALayer;

/// Whether there may be more to see on the screen than when it was last drawn, known without drawing it.
/// While the count stays and no animation runs, the screen looks the same.

/// Something that a frame could show has changed.
void noteScreenChange();
/// Grows with every change noted.
std::uint64_t screenChangeCount();

/// A layer has come into a tree, has left one, or has another place in it: a change that reaches further.
void noteTreeChange();
/// Grows with every such change.
std::uint64_t treeChangeCount();

/// The first of a layer's animations has begun, or its last one has ended. The layer says so before it ceases
/// to exist.
void noteAnimationsBegan(CALayer& layer);
void noteAnimationsEnded(CALayer& layer);
const std::vector<CALayer*>& animatingLayers();
bool anyAnimationRuns();
