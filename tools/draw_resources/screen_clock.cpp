#include <string>

#include "tools/draw_resources/screens.h"
#include "tools/draw_resources/widgets.h"

namespace draw_resources {
namespace {

constexpr Color tint = hex(0x33446b);

struct City {
  std::string_view name;
  std::string_view day;
  int hour;
  int minute;
};
constexpr City cities[] = {
    {"Lisbon", "Today", 17, 42},   {"Nairobi", "Today", 19, 42},      {"Kathmandu", "Today", 22, 27},
    {"Osaka", "Tomorrow", 1, 42},  {"Wellington", "Tomorrow", 5, 42}, {"Vancouver", "Today", 9, 42},
    {"Santiago", "Today", 13, 42}, {"Reykjavik", "Today", 16, 42},    {"Tromsø", "Today", 18, 42},
};

std::string digits(const City& city) { return std::to_string(city.hour) + ":" + std::to_string(city.minute); }

void drawFace(Canvas& c, Point middle, double radius, const City& city) {
  const bool isDay = city.hour >= 6 && city.hour < 18;
  const Rect face = centeredRect(middle, 2 * radius, 2 * radius);
  const Color ink = isDay ? hex(0x1c2333) : pureWhite;
  c.circle({middle.x, middle.y + 1}, radius + 1).fill(black(0.3));
  c.circle(middle, radius)
      .fillKeep(isDay ? Paint::vertical(face, pureWhite, hex(0xdfe3ea))
                      : Paint::vertical(face, hex(0x2a3350), hex(0x10162a)));
  c.stroke(hex(0xb98a3a), radius * 0.07);
  const auto mark = [&](double degrees, double from, double to, double width, Color color) {
    const Canvas::Saved saved(c);
    c.rotateAbout(middle, degrees);
    c.line({middle.x, middle.y - radius * from}, {middle.x, middle.y - radius * to})
        .stroke(color, radius * width);
  };
  for (int hour = 0; hour < 12; ++hour) {
    mark(hour * 30, 0.86, hour % 3 == 0 ? 0.72 : 0.8, 0.05, ink.withAlpha(0.75));
  }
  mark(city.hour * 30 + city.minute * 0.5, -0.08, 0.48, 0.1, ink);
  mark(city.minute * 6, -0.08, 0.74, 0.07, ink);
  mark(135, -0.15, 0.78, 0.03, hex(0xd0472e));
  c.circle(middle, radius * 0.07).fill(hex(0xd0472e));
}

void drawRows(Canvas& c, Rect area) {
  c.rect(area).fill(pureWhite);
  for (const City& city : cities) {
    const Rect row = area.takeTop(76);
    drawSeparator(c, row, 0);
    drawFace(c, {row.x + 44, row.midY()}, 29, city);
    c.text(city.name, {row.x + 86, row.y + 16, 130, 24}, {19, hex(0x171c28), true});
    c.text(city.day, {row.x + 86, row.y + 40, 130, 18}, {14, hex(0x7c8494)});
    c.text(digits(city), {row.right() - 110, row.y, 98, row.h}, {26, hex(0x33446b), false, Align::Right});
  }
}

void drawWall(Canvas& c, Rect area) {
  c.rect(area).fill(Paint::radial({area.midX(), area.y + area.h * 0.35}, area.h * 0.8,
                                  {{0, hex(0x4a5878)}, {1, hex(0x171d30)}}));
  for (int i = 0; i < 9; ++i) {
    const City& city = cities[i];
    const Rect cell = area.inset(20, 20).cell(i % 3, i / 3, 3, 3);
    drawFace(c, {cell.midX(), cell.y + cell.h * 0.42}, 84, city);
    c.text(city.name, {cell.x, cell.bottom() - 62, cell.w, 26},
           {20, pureWhite, true, Align::Center, black(0.6)});
    c.text(std::string(city.day) + ", " + digits(city), {cell.x, cell.bottom() - 37, cell.w, 20},
           {15, hex(0xb7c2d8), false, Align::Center});
  }
}

}  // namespace

void drawClockScreen(Canvas& c) {
  Rect area = c.bounds();
  drawStatusGround(c, area, tint);
  drawNavBar(c, area, {tint, "World Clock", "Edit", "+"});
  drawTabBar(c, area,
             {{Glyph::Globe, "World Clock"},
              {Glyph::Bell, "Alarm"},
              {Glyph::Clock, "Stopwatch"},
              {Glyph::Hourglass, "Timer"}},
             0, hex(0xf0c160));
  const Canvas::Saved saved(c);
  c.rect(area).clip();
  c.isPad() ? drawWall(c, area) : drawRows(c, area);
}

}  // namespace draw_resources
