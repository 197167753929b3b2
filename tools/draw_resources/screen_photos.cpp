#include <cmath>

#include "tools/draw_resources/scenes.h"
#include "tools/draw_resources/screens.h"
#include "tools/draw_resources/widgets.h"

namespace draw_resources {
namespace {

constexpr Color tint = hex(0x4b6a86);

}  // namespace

void drawPhotosScreen(Canvas& c) {
  Rect area = c.bounds();
  drawStatusGround(c, area, tint);
  drawNavBar(c, area, {tint, "Autumn", "Albums", "Select", true});
  drawTabBar(
      c, area,
      {{Glyph::Stack, "Albums"}, {Glyph::Grid, "Photos"}, {Glyph::Flag, "Places"}, {Glyph::Person, "Faces"}},
      1, hex(0x8fc4ea));
  const Canvas::Saved saved(c);
  c.rect(area).clip();
  c.rect(area).fill(pureWhite);
  const double gap = c.isPad() ? 18 : 4;
  const double wished = c.isPad() ? 170 : 75;
  const int columns = static_cast<int>((area.w - gap) / (wished + gap));
  const double side = std::floor((area.w - gap) / columns) - gap;
  const double margin = std::floor((area.w - columns * (side + gap) + gap) / 2);
  for (unsigned i = 0;; ++i) {
    const int column = static_cast<int>(i) % columns;
    const Rect photo{area.x + margin + column * (side + gap),
                     area.y + gap + static_cast<int>(i) / columns * (side + gap), side, side};
    if (photo.y >= area.bottom()) {
      break;
    }
    if (c.isPad()) {
      c.softShadow(photo, 0, 4, 0.35);
    }
    drawScene(c, photo, sceneOfRoll(i * 3 + i / 4));
    c.rect(photo.inset(0.5, 0.5)).stroke(black(0.18), 1);
  }
}

}  // namespace draw_resources
