#include <algorithm>
#include <string>

#include "tools/draw_resources/scenes.h"
#include "tools/draw_resources/screens.h"
#include "tools/draw_resources/widgets.h"

namespace draw_resources {
namespace {

constexpr Color tint = hex(0x2f6a9c);

enum class Sky { Sun, Fair, Cloud, Rain };

struct Day {
  std::string_view name;
  Sky sky;
  int high;  // degrees Celsius
  int low;
};
constexpr Day days[] = {{"Friday", Sky::Fair, 19, 12},  {"Saturday", Sky::Sun, 21, 13},
                        {"Sunday", Sky::Sun, 22, 14},   {"Monday", Sky::Cloud, 18, 12},
                        {"Tuesday", Sky::Rain, 15, 11}, {"Wednesday", Sky::Rain, 14, 9},
                        {"Thursday", Sky::Fair, 16, 10}};

struct Hour {
  std::string_view time;
  Sky sky;
  int degrees;
};
constexpr Hour hours[] = {{"Now", Sky::Fair, 18}, {"19", Sky::Fair, 17}, {"20", Sky::Cloud, 16},
                          {"21", Sky::Cloud, 15}, {"22", Sky::Rain, 14}, {"23", Sky::Rain, 14},
                          {"0", Sky::Cloud, 13},  {"1", Sky::Fair, 13}};

std::string degrees(int value) { return std::to_string(value) + "°"; }

void drawSky(Canvas& c, const Rect& box, Sky sky) {
  const double u = box.w / 24;
  const auto at = [&](double x, double y) { return Point{box.x + x * u, box.y + y * u}; };
  if (sky == Sky::Sun || sky == Sky::Fair) {
    const double size = sky == Sky::Sun ? 24 : 17;
    drawGlyph(c, Glyph::Sun, {box.right() - size * u, box.y, size * u, size * u}, hex(0xffd45e));
  }
  if (sky == Sky::Sun) {
    return;
  }
  c.circle(at(7, 15), 5 * u)
      .circle(at(13, 11.5), 6 * u)
      .circle(at(18, 15.5), 4.5 * u)
      .rect({box.x + 7 * u, box.y + 13 * u, 11 * u, 7 * u});
  c.fill(Paint::vertical(box, pureWhite, sky == Sky::Rain ? hex(0xa9b8c8) : hex(0xd9e3ec)));
  for (double x = 7; sky == Sky::Rain && x < 20; x += 5) {
    c.line(at(x, 21.2), at(x - 1, 24)).stroke(hex(0x9fdcff), 1.5 * u);
  }
}

void drawHours(Canvas& c, const Rect& strip) {
  c.rect(strip).fill(black(0.16));
  c.rect({strip.x, strip.y, strip.w, 1}).rect({strip.x, strip.bottom() - 1, strip.w, 1}).fill(white(0.3));
  const int shown = c.isPad() ? 8 : 6;
  for (int i = 0; i < shown; ++i) {
    const Rect cell = strip.cell(i, 0, shown, 1);
    const double unit = cell.h / 84;
    const double icon = 30 * unit;
    c.text(hours[i].time, {cell.x, cell.y + 4 * unit, cell.w, 16 * unit},
           {12 * unit, white(0.9), true, Align::Center});
    drawSky(c, centeredRect({cell.midX(), cell.midY() - 1}, icon, icon), hours[i].sky);
    c.text(degrees(hours[i].degrees), {cell.x + 3, cell.bottom() - 22 * unit, cell.w, 18 * unit},
           {15 * unit, pureWhite, true, Align::Center});
  }
}

void drawDays(Canvas& c, Rect area) {
  constexpr int daysShown = 7;
  const double height = static_cast<int>(area.h / daysShown);
  const double size = std::min(height * 0.5, 26.0);
  for (const Day& day : days) {
    Rect row = area.takeTop(height);
    c.rect({row.x, row.bottom() - 1, row.w, 1}).fill(white(0.22));
    row = row.inset(std::min(row.w * 0.06, 60.0), 0);
    c.text(day.name, row, {size * 1.05, pureWhite, true, Align::Left, black(0.25)});
    drawSky(c, centeredRect({row.midX() + 10, row.midY()}, height * 0.7, height * 0.7), day.sky);
    c.text(degrees(day.low), row.takeRight(size * 2), {size, white(0.72), false, Align::Right});
    c.text(degrees(day.high), row.takeRight(size * 2.4), {size, pureWhite, true, Align::Right});
  }
}

}  // namespace

void drawWeatherScreen(Canvas& c) {
  Rect area = c.bounds();
  const Rect ground = area;
  c.rect(ground).fill(Paint::vertical(
      ground, {{0, hex(0x2a6fb0)}, {0.4, hex(0x62a9dc)}, {0.75, hex(0x4a84bd)}, {1, hex(0x2b4f86)}}));
  drawStatusGround(c, area, tint);
  const double k = c.isPad() ? 2 : 1;
  Rect now = area.takeTop((c.isPad() ? 340 : area.h * 0.36));
  drawRidge(c, {now.x, now.y, now.w, now.h}, 0.16, 0.05, 9, hex(0x2f6aa3, 0.55));
  drawRidge(c, {now.x, now.y, now.w, now.h}, 0.09, 0.04, 17, hex(0x24588e, 0.7));
  c.text("Lisbon", {now.x, now.y + 8 * k, now.w, 26 * k},
         {22 * k, pureWhite, true, Align::Center, black(0.3)});
  c.text("Sunny spells, light wind", {now.x, now.y + 33 * k, now.w, 18 * k},
         {13 * k, white(0.92), false, Align::Center});
  const double middle = now.y + now.h * 0.63;
  drawSky(c, centeredRect({now.midX() - 66 * k, middle}, 74 * k, 74 * k), Sky::Fair);
  c.text("18°", {now.midX() - 10 * k, middle - 46 * k, 140 * k, 92 * k},
         {78 * k, pureWhite, false, Align::Left, black(0.25)});
  drawHours(c, area.takeTop(c.isPad() ? 124 : 84));
  Rect foot = area.takeBottom(30);
  drawDays(c, area);
  for (int page = 0; page < 4; ++page) {
    c.circle({foot.midX() + (page - 1.5) * 14, foot.midY()}, 3).fill(white(page == 0 ? 1 : 0.4));
  }
  c.text("Updated 17:42", {foot.right() - 110, foot.y, 100, foot.h}, {11, white(0.8), false, Align::Right});
}

}  // namespace draw_resources
