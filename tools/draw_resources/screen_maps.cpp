#include <cmath>

#include "tools/draw_resources/scenes.h"
#include "tools/draw_resources/screens.h"
#include "tools/draw_resources/widgets.h"

namespace draw_resources {
namespace {

constexpr Color tint = hex(0x5f7f52);
constexpr double blockPitch = 74;  // between the middles of two small streets

/// The invented town, drawn around its market square at (0, 0).
void drawTown(Canvas& c) {
  constexpr int reach = 10;
  constexpr double far = blockPitch * reach;
  const auto street = [&](Point from, Point to, double width, Color color) {
    c.line(from, to).stroke(color, width);
  };
  for (int i = -reach; i <= reach; ++i) {
    for (int j = -reach; j <= reach; ++j) {
      const unsigned seed = static_cast<unsigned>((i + 40) * 97 + j + 40);
      const Rect block = Rect{i * blockPitch, j * blockPitch, blockPitch, blockPitch}.inset(6, 6);
      const bool isPark = chance(seed, 1) > 0.88;
      c.roundRect(block, 3).fill(isPark ? hex(0xbfdc9f) : mix(hex(0xe9e2d3), hex(0xdfd6c4), chance(seed, 2)));
      for (int tree = 0; isPark && tree < 6; ++tree) {
        const unsigned place = 10 + static_cast<unsigned>(tree);
        c.circle({block.x + block.w * (0.1 + 0.8 * chance(seed, place)),
                  block.y + block.h * (0.1 + 0.8 * chance(seed, place + 9))},
                 4)
            .fill(hex(0x8dbb6c));
      }
    }
  }
  c.roundRect({-blockPitch * 2 + 6, -blockPitch * 3 + 6, blockPitch * 2 - 12, blockPitch * 2 - 12}, 6)
      .fill(hex(0xb4d896));
  c.ellipse({-blockPitch * 1.7, -blockPitch * 2.5, blockPitch * 0.9, blockPitch * 0.6}).fill(hex(0x8fc4e0));
  const char* river = "M-740 250 C-260 120 -190 330 -20 240 C120 165 170 330 740 150";
  c.path(river).strokeKeep(hex(0x79b2d2), 62).stroke(hex(0x9bcbe4), 58);
  for (const double casing : {1.0, 0.0}) {
    for (int i = -reach; i <= reach; ++i) {
      const bool isBridge = i % 3 == 0;
      const Color color = casing > 0 ? hex(0xc4b9a4) : pureWhite;
      street({i * blockPitch, -far}, {i * blockPitch, isBridge ? far : 2 * blockPitch}, 8 + 2 * casing,
             color);
      street({i * blockPitch, 4 * blockPitch}, {i * blockPitch, far}, 8 + 2 * casing, color);
      street({-far, i * blockPitch}, {i == 3 ? -far : far, i * blockPitch}, 8 + 2 * casing, color);
    }
    const Color main = casing > 0 ? hex(0xd39a3c) : hex(0xffdc83);
    street({-far, -blockPitch * 4}, {far, blockPitch * 2.2}, 13 + 2.5 * casing, main);
    street({0, -far}, {0, far}, 13 + 2.5 * casing, main);
  }
}

void drawStreetNames(Canvas& c) {
  const TextStyle style{11, hex(0x5b5344), true, Align::Center};
  c.text("Market St", {26, blockPitch - 7, 100, 14}, style);
  c.text("Mill Lane", {-130, -blockPitch - 7, 100, 14}, style);
  c.text("Otter Park", {-144, -blockPitch * 1.45, 130, 18}, {13, hex(0x4b7433), true, Align::Center});
  c.text("River Ambel", {-200, 226, 120, 16}, {12, hex(0x37779c), false, Align::Center});
}

void drawRoute(Canvas& c) {
  const Point start{-blockPitch, 1.6 * blockPitch};
  const Point end{blockPitch, -blockPitch};
  c.moveTo(start)
      .lineTo({-blockPitch, blockPitch})
      .lineTo({0, blockPitch})
      .lineTo({0, -blockPitch})
      .lineTo(end);
  c.strokeKeep(hex(0x5b2a82), 8).stroke(hex(0x9b5fd0), 5.5);
  c.circle(start, 26).fill(hex(0x2f86c9, 0.18));
  c.circle(start, 8).fillKeep(pureWhite).stroke(black(0.3), 1);
  c.shadeDisc(start, 5.5, hex(0x6fb7ea), hex(0x1f6cab));
  const Rect label = centeredRect({end.x, end.y - 54}, 132, 38);
  c.ellipse({end.x - 8, end.y - 3, 16, 6}).fill(black(0.3));
  c.line(end, {end.x, end.y - 34}).stroke(hex(0x3a2b2f), 2.5);
  c.softShadow(label, 7, 4, 0.4);
  c.panel(label, 7, hex(0x4a4f57), hex(0x17191d), hex(0x101114));
  c.text("Café Lantern", {label.x + 10, label.y + 3, 92, 18}, {13, pureWhite, true});
  c.text("14 min on foot", {label.x + 10, label.y + 19, 92, 15}, {11, hex(0xc3c8d0)});
  drawChevron(c, label, pureWhite);
}

}  // namespace

void drawMapsScreen(Canvas& c) {
  Rect area = c.bounds();
  drawStatusGround(c, area, tint);
  Rect search = area;
  drawNavBar(c, area, {tint, ""});
  search.h = barHeight(c);
  const Rect bar = drawToolBar(c, area, tint);
  {
    const Canvas::Saved saved(c);
    c.rect(area).clip();
    const double scale = c.isPad() ? 1.5 : c.isLandscape() ? 0.72 : 1;
    c.place({std::round(area.midX()), std::round(area.y + area.h * 0.52)}, scale);
    c.rect({-2000, -2000, 4000, 4000}).fill(hex(0xe4dccb));
    drawTown(c);
    drawStreetNames(c);
    drawRoute(c);
  }
  const double inset = search.h > 40 ? 7 : 3;
  drawBarButton(c, search.takeRight(76).inset(6, inset), tint, "Clear");
  drawSearchField(c, {search.x + 8, search.y + inset, search.w - 10, search.h - 2 * inset},
                  "Café Lantern, Mill Lane", hex(0x222222));
  drawGlyph(c, Glyph::Arrow, {bar.x + 12, bar.midY() - 11, 22, 22}, pureWhite);
  drawSegments(c, centeredRect(bar.center(), 200, bar.h - 2 * inset), {"Map", "Aerial", "List"}, 0, tint);
  drawGlyph(c, Glyph::Lines, {bar.right() - 34, bar.midY() - 11, 22, 22}, pureWhite);
}

}  // namespace draw_resources
