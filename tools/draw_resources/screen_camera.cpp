#include <algorithm>

#include "tools/draw_resources/scenes.h"
#include "tools/draw_resources/screens.h"
#include "tools/draw_resources/widgets.h"

namespace draw_resources {
namespace {

constexpr Color tint = hex(0x3a3d42);

void drawPill(Canvas& c, const Rect& box, Glyph glyph, std::string_view label) {
  c.panel(box, box.h / 2, white(0.35), white(0.35), black(0.5));
  drawGlyph(c, glyph, {box.x + 12, box.midY() - 10, 20, 20}, hex(0x16181b));
  c.text(label, {box.x + 38, box.y, box.w, box.h}, {14, hex(0x16181b), true});
}

void drawFocusSquare(Canvas& c, const Rect& box) {
  c.rect(box.offset(0, 1)).stroke(black(0.35), 1.5);
  c.rect(box).stroke(hex(0xffd76a), 1.5);
  for (const auto& [dx, dy] : {Point{0, -1}, {0, 1}, {-1, 0}, {1, 0}}) {
    const Point edge{box.midX() + dx * box.w / 2, box.midY() + dy * box.h / 2};
    c.line(edge, {edge.x - dx * 7, edge.y - dy * 7}).stroke(hex(0xffd76a), 1.5);
  }
}

}  // namespace

void drawCameraScreen(Canvas& c) {
  Rect area = c.bounds();
  drawStatusGround(c, area, tint);
  Rect bar = area.takeBottom(c.isPad() ? 72 : 54);
  drawScene(c, area, {Subject::Boat, 10});
  for (int third = 1; third < 3; ++third) {
    c.rect({area.x + area.w * third / 3, area.y, 1, area.h})
        .rect({area.x, area.y + area.h * third / 3, area.w, 1});
  }
  c.fill(white(0.3));
  drawPill(c, {area.x + 10, area.y + 10, 84, 34}, Glyph::Sun, "Auto");
  drawPill(c, {area.right() - 54, area.y + 10, 44, 34}, Glyph::Reload, "");
  const double focus = std::min(area.w, area.h) * 0.26;
  drawFocusSquare(c, centeredRect({area.midX(), area.y + area.h * 0.47}, focus, focus));
  const Rect zoom{area.x + area.w * 0.16, area.bottom() - 34, area.w * 0.68, 6};
  c.panel(zoom, 3, black(0.35), black(0.35), white(0.6));
  drawKnob(c, {zoom.x + zoom.w * 0.3, zoom.midY()}, 9);

  c.shadeRect(bar, hex(0xcfd2d6), hex(0x7f848b));
  c.rect({bar.x, bar.y, bar.w, 1}).fill(hex(0x2a2c30));
  const Rect shutter = centeredRect(bar.center(), 104, bar.h - 14);
  c.panel(shutter, shutter.h / 2, hex(0xf7f8f9), hex(0xa3a8af), hex(0x5c6168));
  drawGlyph(c, Glyph::Camera, centeredRect(shutter.center(), 28, 28), hex(0x24272b));
  const Rect roll{bar.x + 10, bar.midY() - 19, 38, 38};
  c.roundRect(roll.inset(-1, -1), 3).fill(hex(0x4a4e54));
  drawScene(c, roll.inset(1, 1), {Subject::Flower, 4});
  const Rect mode = centeredRect({bar.right() - 44, bar.midY()}, 64, 26);
  c.panel(mode, 13, hex(0x6d7178), hex(0xa4a8ae), black(0.5));
  drawKnob(c, {mode.x + 13, mode.midY()}, 12);
  drawGlyph(c, Glyph::Camera, centeredRect({mode.x + 13, mode.midY()}, 16, 16), hex(0x3a3d42));
  drawGlyph(c, Glyph::Film, centeredRect({mode.right() - 18, mode.midY()}, 20, 20), hex(0x2f3237));
}

}  // namespace draw_resources
