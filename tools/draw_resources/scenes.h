#pragma once

#include "tools/draw_resources/canvas.h"

namespace draw_resources {

enum class Subject { Mountains, Boat, Balloon, Flower, Forest };

/// An invented photograph; `mood` picks its colours and places, any number will do.
struct Scene {
  Subject subject;
  unsigned mood;
};

/// Fills the rectangle, nothing beyond it.
void drawScene(Canvas& canvas, const Rect& area, const Scene& scene);

/// The scene for a place in a roll of photos.
Scene sceneOfRoll(unsigned index);

/// A wavy skyline from the left to the right edge, closed along the bottom and filled.
void drawRidge(Canvas& canvas, const Rect& area, double height, double roughness, unsigned seed,
               const Paint& paint);

/// A fixed number from 0 to 1 for each pair: chance that is the same in each run.
double chance(unsigned seed, unsigned index);

}  // namespace draw_resources
