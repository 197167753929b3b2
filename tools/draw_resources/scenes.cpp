#include "tools/draw_resources/scenes.h"

#include <array>
#include <cmath>

namespace draw_resources {
namespace {

struct Mood {
  Color skyTop;
  Color skyBottom;
  Color far;
  Color near;
  Color accent;
};

constexpr std::array<Mood, 5> moods{{
    {hex(0x3f7fb8), hex(0xcfe6ef), hex(0x7f9fb5), hex(0x3f6b4c), hex(0xf2c14e)},  // noon
    {hex(0x4a3b78), hex(0xf4a261), hex(0x8a5a83), hex(0x3a2a4a), hex(0xffe0a3)},  // dusk
    {hex(0x16697a), hex(0xa8e0d1), hex(0x4f9a94), hex(0x1f5a55), hex(0xff8c61)},  // sea air
    {hex(0x6b7a8f), hex(0xe9e4d8), hex(0xa7b0b5), hex(0x5d6b5a), hex(0xc8553d)},  // mist
    {hex(0xd8576b), hex(0xfde2c0), hex(0xb56576), hex(0x6d3b5a), hex(0xfff1b8)},  // morning
}};

void drawSky(Canvas& c, const Rect& area, const Mood& mood, double sunX, double sunY) {
  c.shadeRect(area, mood.skyTop, mood.skyBottom);
  const Point sun{area.x + area.w * sunX, area.y + area.h * sunY};
  const double glow = area.h * 0.5;
  c.circle(sun, glow).fill(
      Paint::radial(sun, glow, {{0, mood.accent.withAlpha(0.6)}, {1, mood.accent.withAlpha(0)}}));
  c.circle(sun, (area.w + area.h) * 0.035).fill(lighter(mood.accent, 0.4));
}

void drawMountains(Canvas& c, const Rect& area, const Mood& mood, unsigned seed) {
  drawRidge(c, area, 0.52, 0.16, seed, Paint::vertical(area, lighter(mood.far, 0.35), mood.far));
  drawRidge(c, area, 0.38, 0.11, seed + 3, mix(mood.far, mood.near, 0.55));
  drawRidge(c, area, 0.2, 0.06, seed + 7, Paint::vertical(area, mood.near, darker(mood.near, 0.35)));
}

void drawBoat(Canvas& c, const Rect& area, const Mood& mood, unsigned seed) {
  Rect rest = area;
  const Rect sea = rest.takeBottom(area.h * 0.42);
  drawRidge(c, rest, 0.1, 0.05, seed, mix(mood.far, mood.near, 0.4));
  c.shadeRect(sea, mix(mood.skyBottom, mood.far, 0.5), darker(mood.near, 0.15));
  for (unsigned i = 0; i < 14; ++i) {
    const double y = sea.y + sea.h * (0.08 + 0.9 * chance(seed, i));
    const double x = sea.x + sea.w * chance(seed, i + 40);
    c.line({x, y}, {x + area.w * 0.09, y}).stroke(white(0.22), area.h * 0.006);
  }
  const Canvas::Saved saved(c);
  c.place({area.x + area.w * (0.35 + 0.35 * chance(seed, 5)), sea.y}, (area.w + area.h) * 0.005);
  c.path("M1 -24 L1 6 L17 6 Z").fill(hex(0xfaf5e8));
  c.path("M-1 -19 L-1 6 L-12 6 Z").fill(mood.accent);
  c.path("M-15 8 L18 8 L12 15 L-10 15 Z").fill(darker(mood.near, 0.35));
}

void drawBalloon(Canvas& c, const Rect& area, const Mood& mood, unsigned seed) {
  drawRidge(c, area, 0.16, 0.05, seed, mood.near);
  const Canvas::Saved saved(c);
  c.place({area.x + area.w * (0.35 + 0.3 * chance(seed, 2)), area.y + area.h * 0.38}, area.h * 0.023);
  c.path("M-10 0 A0 0 10 180 360 C10 7 3 10 2 13.5 L-2 13.5 C-3 10 -10 7 -10 0 Z").fill(mood.accent);
  c.path(
      "M-3 -9.5 C-6 -4 -5 5 -1 13.5 L0 13.5 L0 -10 Z M4 -9 C8 -4 7 5 2 13.5 L4 10 C6 7 10 7 10 0 C10 -4 8 -7 "
      "4 -9 Z");
  c.fill(hex(0xfff8ec, 0.9));
  c.path("M-1.6 13.5 L-1.2 16.5 M1.6 13.5 L1.2 16.5").stroke(hex(0x5a4632), 0.3);
  c.path("R-1.5 16.2 3 2.4").fill(hex(0x6e4f30));
}

void drawFlower(Canvas& c, const Rect& area, const Mood& mood, unsigned seed) {
  c.rect(area).fill(Paint::radial(area.center(), area.w * 0.9,
                                  {{0, lighter(mood.near, 0.35)}, {1, darker(mood.near, 0.35)}}));
  for (unsigned i = 0; i < 8; ++i) {
    const Point spot{area.x + area.w * chance(seed, i), area.y + area.h * chance(seed, i + 20)};
    c.circle(spot, area.h * (0.05 + 0.1 * chance(seed, i + 60)))
        .fill(lighter(mood.accent, 0.5).withAlpha(0.16));
  }
  const Point heart{area.x + area.w * (0.4 + 0.2 * chance(seed, 9)), area.y + area.h * 0.48};
  c.line(heart, {heart.x + area.w * 0.06, area.bottom()}).stroke(darker(mood.near, 0.1), area.h * 0.036);
  const Canvas::Saved saved(c);
  c.place(heart, area.h * 0.03);
  for (int petal = 0; petal < 9; ++petal) {
    c.rotateAbout({0, 0}, 40);
    const Rect leaf{-2.4, -11.5, 4.8, 11};
    c.ellipse(leaf)
        .fillKeep(Paint::vertical(leaf, lighter(mood.accent, 0.55), mood.accent))
        .stroke(black(0.08), 0.3);
  }
  c.circle({0, 0}, 2.8).fill(hex(0x6e4718));
}

void drawForest(Canvas& c, const Rect& area, const Mood& mood, unsigned seed) {
  for (unsigned row = 0; row < 3; ++row) {
    const Color leaf = mix(lighter(mood.far, 0.1), darker(mood.near, 0.3), row / 2.0);
    const double size = area.h * (0.3 + 0.14 * row);
    for (unsigned i = 0; i < 9; ++i) {
      const double x = area.x + area.w * (i + 0.8 * chance(seed + row, i)) / 8.5;
      const double foot = area.bottom() - area.h * (0.24 - 0.13 * row);
      const Canvas::Saved saved(c);
      c.place({x, foot}, size * (0.8 + 0.4 * chance(seed + row, i + 30)));
      c.path("M0 -1 L0.26 0 L-0.26 0 Z").fill(leaf);
    }
    c.rect({area.x, area.bottom() - area.h * (0.24 - 0.13 * row), area.w, area.h * 0.3}).fill(leaf);
  }
}

}  // namespace

double chance(unsigned seed, unsigned index) {
  unsigned mixed = seed * 0x9e3779b1u + index * 0x85ebca77u + 0x165667b1u;
  mixed = (mixed ^ (mixed >> 15)) * 0x2c1b3c6du;
  mixed = (mixed ^ (mixed >> 12)) * 0x297a2d39u;
  return (mixed ^ (mixed >> 15)) / 4294967296.0;
}

void drawRidge(Canvas& c, const Rect& area, double height, double roughness, unsigned seed,
               const Paint& paint) {
  constexpr int steps = 48;
  c.moveTo({area.x, area.bottom()});
  for (int i = 0; i <= steps; ++i) {
    const double t = static_cast<double>(i) / steps;
    double sum = 0;
    for (unsigned octave = 1; octave <= 4; ++octave) {
      sum += std::sin(t * 4.2 * octave + 2 * pi * chance(seed, octave)) / octave;
    }
    c.lineTo({area.x + area.w * t, area.bottom() - area.h * (height + roughness * sum * 0.6)});
  }
  c.lineTo({area.right(), area.bottom()}).close().fill(paint);
}

Scene sceneOfRoll(unsigned index) {
  constexpr unsigned subjects = 5;
  return {static_cast<Subject>(index % subjects), index * 7 + index / subjects};
}

void drawScene(Canvas& canvas, const Rect& area, const Scene& scene) {
  const Canvas::Saved saved(canvas);
  canvas.rect(area).clip();
  const Mood& mood = moods[scene.mood % moods.size()];
  drawSky(canvas, area, mood, 0.2 + 0.6 * chance(scene.mood, 1), 0.2 + 0.2 * chance(scene.mood, 2));
  switch (scene.subject) {
    case Subject::Mountains:
      return drawMountains(canvas, area, mood, scene.mood);
    case Subject::Boat:
      return drawBoat(canvas, area, mood, scene.mood);
    case Subject::Balloon:
      return drawBalloon(canvas, area, mood, scene.mood);
    case Subject::Flower:
      return drawFlower(canvas, area, mood, scene.mood);
    case Subject::Forest:
      return drawForest(canvas, area, mood, scene.mood);
  }
}

}  // namespace draw_resources
