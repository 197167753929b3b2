#include <cmath>

#include "tools/draw_resources/scenes.h"
#include "tools/draw_resources/screens.h"
#include "tools/draw_resources/widgets.h"

namespace draw_resources {

namespace {

constexpr Color kTint = hex(0x5f7f52);
constexpr double kBlock = 74;  // between the middles of two small streets

/// The invented town, drawn around its market square at (0, 0).
void drawTown(Canvas& c) {
  constexpr int kReach = 10;
  constexpr double kFar = kBlock * kReach;
  const auto street = [&](Point from, Point to, double width, Color color) {
    c.line(from, to).stroke(color, width);
  };
  for (int i = -kReach; i <= kReach; ++i) {
    for (int j = -kReach; j <= kReach; ++j) {
      const unsigned seed = static_cast<unsigned>((i + 40) * 97 + j + 40);
      const Rect block = Rect{i * kBlock, j * kBlock, kBlock, kBlock}.inset(6, 6);
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
  c.roundRect({-kBlock * 2 + 6, -kBlock * 3 + 6, kBlock * 2 - 12, kBlock * 2 - 12}, 6).fill(hex(0xb4d896));
  c.ellipse({-kBlock * 1.7, -kBlock * 2.5, kBlock * 0.9, kBlock * 0.6}).fill(hex(0x8fc4e0));
  const char* river = "M-740 250 C-260 120 -190 330 -20 240 C120 165 170 330 740 150";
  c.path(river).strokeKeep(hex(0x79b2d2), 62).stroke(hex(0x9bcbe4), 58);
  for (const double casing : {1.0, 0.0}) {
    for (int i = -kReach; i <= kReach; ++i) {
      const bool isBridge = i % 3 == 0;
      const Color color = casing > 0 ? hex(0xc4b9a4) : kWhite;
      street({i * kBlock, -kFar}, {i * kBlock, isBridge ? kFar : 2 * kBlock}, 8 + 2 * casing, color);
      street({i * kBlock, 4 * kBlock}, {i * kBlock, kFar}, 8 + 2 * casing, color);
      street({-kFar, i * kBlock}, {i == 3 ? -kFar : kFar, i * kBlock}, 8 + 2 * casing, color);
    }
    const Color main = casing > 0 ? hex(0xd39a3c) : hex(0xffdc83);
    street({-kFar, -kBlock * 4}, {kFar, kBlock * 2.2}, 13 + 2.5 * casing, main);
    street({0, -kFar}, {0, kFar}, 13 + 2.5 * casing, main);
  }
}

void drawStreetNames(Canvas& c) {
  const TextStyle style{11, hex(0x5b5344), true, Align::Center};
  c.text("Market St", {26, kBlock - 7, 100, 14}, style);
  c.text("Mill Lane", {-130, -kBlock - 7, 100, 14}, style);
  c.text("Otter Park", {-144, -kBlock * 1.45, 130, 18}, {13, hex(0x4b7433), true, Align::Center});
  c.text("River Ambel", {-200, 226, 120, 16}, {12, hex(0x37779c), false, Align::Center});
}

void drawRoute(Canvas& c) {
  const Point start{-kBlock, 1.6 * kBlock};
  const Point end{kBlock, -kBlock};
  c.moveTo(start).lineTo({-kBlock, kBlock}).lineTo({0, kBlock}).lineTo({0, -kBlock}).lineTo(end);
  c.strokeKeep(hex(0x5b2a82), 8).stroke(hex(0x9b5fd0), 5.5);
  c.circle(start, 26).fill(hex(0x2f86c9, 0.18));
  c.circle(start, 8).fillKeep(kWhite).stroke(black(0.3), 1);
  c.shadeDisc(start, 5.5, hex(0x6fb7ea), hex(0x1f6cab));
  const Rect label = centeredRect({end.x, end.y - 54}, 132, 38);
  c.ellipse({end.x - 8, end.y - 3, 16, 6}).fill(black(0.3));
  c.line(end, {end.x, end.y - 34}).stroke(hex(0x3a2b2f), 2.5);
  c.softShadow(label, 7, 4, 0.4);
  c.panel(label, 7, hex(0x4a4f57), hex(0x17191d), hex(0x101114));
  c.text("Café Lantern", {label.x + 10, label.y + 3, 92, 18}, {13, kWhite, true});
  c.text("14 min on foot", {label.x + 10, label.y + 19, 92, 15}, {11, hex(0xc3c8d0)});
  drawChevron(c, label, kWhite);
}

}  // namespace

void drawMapsScreen(Canvas& c) {
  Rect area = c.bounds();
  drawStatusGround(c, area, kTint);
  Rect search = area;
  drawNavBar(c, area, {kTint, ""});
  search.h = barHeight(c);
  const Rect bar = drawToolBar(c, area, kTint);
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
  drawBarButton(c, search.takeRight(76).inset(6, inset), kTint, "Clear");
  drawSearchField(c, {search.x + 8, search.y + inset, search.w - 10, search.h - 2 * inset},
                  "Café Lantern, Mill Lane", hex(0x222222));
  drawGlyph(c, Glyph::Arrow, {bar.x + 12, bar.midY() - 11, 22, 22}, kWhite);
  drawSegments(c, centeredRect(bar.center(), 200, bar.h - 2 * inset), {"Map", "Aerial", "List"}, 0, kTint);
  drawGlyph(c, Glyph::Lines, {bar.right() - 34, bar.midY() - 11, 22, 22}, kWhite);
}

}  // namespace draw_resources
