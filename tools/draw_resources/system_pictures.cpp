// The grab pattern and the wallpapers.

#include "tools/draw_resources/system_pictures.h"

#include "tools/draw_resources/scenes.h"

namespace draw_resources {
namespace {

/// Soft discs of light, larger and fainter towards the bottom.
void drawLights(Canvas& canvas, unsigned seed, unsigned count, Color color) {
  const Rect& area = canvas.bounds();
  for (unsigned i = 0; i < count; ++i) {
    const Point center{area.w * chance(seed, i), area.h * (0.25 + 0.75 * chance(seed, i + 100))};
    const double radius = area.w * (0.02 + 0.09 * chance(seed, i + 200));
    const Color light = color.withAlpha(0.04 + 0.07 * chance(seed, i + 300));
    canvas.circle(center, radius)
        .fillKeep(Paint::radial(center, radius, {{0, light.withAlpha(light.a / 2)}, {1, light}}));
    canvas.stroke(light, 1);
  }
}

/// A wide translucent band that rises and falls across the screen.
void drawRibbon(Canvas& canvas, double y, double lift, double thickness, Color color) {
  const double w = canvas.bounds().w;
  const double h = canvas.bounds().h;
  canvas.moveTo({0, h * y})
      .curveTo({w * 0.35, h * (y - lift)}, {w * 0.6, h * (y + lift)}, {w, h * (y - lift * 0.6)});
  canvas.lineTo({w, h * (y - lift * 0.6 + thickness)});
  canvas.curveTo({w * 0.6, h * (y + lift + thickness * 0.5)}, {w * 0.35, h * (y - lift + thickness * 1.6)},
                 {0, h * (y + thickness)});
  canvas.close().fill(
      Paint::linear({0, 0}, {w, 0}, {{0, color}, {0.5, color.withAlpha(color.a * 0.35)}, {1, color}}));
}

}  // namespace

void drawGrabTile(Canvas& canvas) {
  const Point middle{grabTilePoints / 2, grabTilePoints / 2};
  canvas.rect(canvas.bounds()).fill(hex(0x14171c, 0.62));
  // A sunken dot: light catches its lower rim.
  canvas.circle({middle.x, middle.y + 0.75}, 2.1).fill(white(0.34));
  canvas.circle({middle.x, middle.y - 0.15}, 2.1).fill(hex(0x07090c));
  canvas.circle({middle.x, middle.y + 0.35}, 1.3).fill(hex(0x1d2228));
}

void drawHomeWallpaper(Canvas& canvas) {
  const Rect& area = canvas.bounds();
  canvas.rect(area).fill(Paint::vertical(
      area, {{0, hex(0x141b3c)}, {0.4, hex(0x1b4569)}, {0.75, hex(0x22757f)}, {1, hex(0x2f8f86)}}));
  const Point glow{area.w * 0.8, area.h * 0.95};
  const double reach = area.h * 0.75;
  canvas.rect(area).fill(Paint::radial(
      glow, reach, {{0, hex(0x9df0c4, 0.6)}, {0.5, hex(0x7fe0d0, 0.18)}, {1, hex(0x7fe0d0, 0)}}));
  for (int i = 0; i < 6; ++i) {
    drawRibbon(canvas, 0.28 + 0.11 * i, 0.12 - 0.03 * i, 0.05 + 0.02 * i, white(0.035 + 0.008 * i));
  }
  drawLights(canvas, 11, 22, hex(0xe8fff6));
}

void drawLockWallpaper(Canvas& canvas) {
  const Rect& area = canvas.bounds();
  canvas.rect(area).fill(Paint::vertical(
      area, {{0, hex(0x1a1d3f)}, {0.4, hex(0x57406f)}, {0.68, hex(0xd9826f)}, {0.8, hex(0xf6c38b)}}));
  for (unsigned i = 0; i < 90; ++i) {
    const double height = chance(5, i + 500);
    canvas.circle({area.w * chance(5, i), area.h * 0.5 * height}, 0.4 + 0.8 * chance(5, i + 900))
        .fill(white(0.75 * (1 - height)));
  }
  const Point sun{area.w * 0.62, area.h * 0.66};
  const double glow = area.h * 0.35;
  canvas.circle(sun, glow).fill(Paint::radial(
      sun, glow, {{0, hex(0xffe3b0, 0.9)}, {0.12, hex(0xffd9a0, 0.55)}, {1, hex(0xffd9a0, 0)}}));
  canvas.circle(sun, area.w * 0.055).fill(hex(0xfff3d6));
  constexpr int ridges = 5;
  for (int i = 0; i < ridges; ++i) {  // mist lies between them, so each fades downwards
    const double t = static_cast<double>(i) / (ridges - 1);
    const double height = 0.36 - 0.075 * i;
    const Color ridge = mix(hex(0xb7657a), hex(0x14162b), t);
    const Rect body{0, area.h * (1 - height - 0.06), area.w, area.h * (height + 0.06)};
    drawRidge(
        canvas, area, height, 0.035 - 0.003 * i, 31 + static_cast<unsigned>(i) * 3,
        Paint::vertical(body, {{0, ridge}, {0.55, mix(ridge, hex(0xe0937c), 0.45 * (1 - t))}, {1, ridge}}));
  }
}

}  // namespace draw_resources
