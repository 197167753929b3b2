#include <string>

#include "tools/draw_resources/screens.h"
#include "tools/draw_resources/widgets.h"

namespace draw_resources {
namespace {

constexpr Color tint = hex(0x2f8a84);
constexpr int daysInMonth = 31;  // October 2012, which begins on a Monday
constexpr int today = 18;

struct Event {
  int day;
  std::string_view time;
  std::string_view title;
  std::string_view place;
  Color color;
};
constexpr Event events[] = {
    {3, "10:00", "Dentist", "Mill Lane 4", hex(0xc8553d)},
    {5, "19:30", "Choir practice", "St. Anne's Hall", hex(0x7a5ba8)},
    {9, "16:00", "Parents' evening", "Hill School", hex(0xd08a2a)},
    {13, "All day", "Hanna's birthday", "", hex(0xc8553d)},
    {18, "09:15", "Stand-up with Jonas", "Room 3", hex(0x2f8a84)},
    {18, "12:30", "Lunch at the harbour", "Pier 7", hex(0xd08a2a)},
    {18, "19:30", "Choir practice", "St. Anne's Hall", hex(0x7a5ba8)},
    {22, "08:00", "Train to the coast", "Platform 2", hex(0x2f8a84)},
    {27, "All day", "Cabin weekend", "", hex(0x5d8f3a)},
};

void drawDay(Canvas& c, const Rect& cell, int number, bool isThisMonth) {
  const bool isToday = isThisMonth && number == today;
  const Color face = isToday ? tint : isThisMonth ? hex(0xeef1f1) : hex(0xdfe3e3);
  c.shadeRect(cell, isToday ? lighter(face, 0.25) : lighter(face, 0.4), face);
  c.rect({cell.x, cell.bottom() - 1, cell.w, 1})
      .rect({cell.right() - 1, cell.y, 1, cell.h})
      .fill(hex(0xb4bebe));
  const Color ink = isToday ? pureWhite : isThisMonth ? hex(0x37474a) : hex(0x9aa7a8);
  const bool isLarge = c.isPad();
  Rect number_ = isLarge ? Rect{cell.x, cell.y + 4, cell.w - 8, 24} : cell.offset(0, -3);
  c.text(std::to_string(number), number_,
         {isLarge ? 18.0 : 21.0, ink, true, isLarge ? Align::Right : Align::Center,
          isToday ? black(0.4) : white(0.9), isToday ? -1.0 : 1.0});
  double y = isLarge ? cell.y + 30 : cell.bottom() - 7;
  double dots = 0;
  for (const Event& event : events) {
    if (!isThisMonth || event.day != number) {
      continue;
    }
    if (isLarge) {
      const Rect chip{cell.x + 4, y, cell.w - 9, 17};
      c.roundRect(chip, 3).fill(isToday ? white(0.9) : event.color.withAlpha(0.18));
      c.rect({chip.x + 3, chip.y + 3, 3, 11}).fill(event.color);
      c.text(event.title, chip.inset(9, 0), {11, darker(event.color, 0.35), true});
      y += 20;
    } else {
      c.circle({cell.midX() + 6 * dots++, y}, 2).fill(isToday ? pureWhite : event.color);
    }
  }
}

void drawMonth(Canvas& c, Rect area) {
  const Rect names = area.takeTop(18);
  c.shadeRect(names, hex(0xf4f6f6), hex(0xd3dada));
  constexpr std::string_view weekdayNames[] = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
  for (int column = 0; column < 7; ++column) {
    c.text(weekdayNames[column], names.cell(column, 0, 7, 1), {10, hex(0x55666a), true, Align::Center});
  }
  for (int i = 0; i < 35; ++i) {
    const bool isThisMonth = i < daysInMonth;
    // Whole points, so that the lines stay sharp.
    const int left = static_cast<int>(area.w * (i % 7) / 7);
    const int right = static_cast<int>(area.w * (i % 7 + 1) / 7);
    const double height = static_cast<int>(area.h / 5);
    drawDay(c, {area.x + left, area.y + height * (i / 7), static_cast<double>(right - left), height},
            isThisMonth ? i + 1 : i + 1 - daysInMonth, isThisMonth);
  }
}

void drawAgenda(Canvas& c, Rect area) {
  c.rect(area).fill(pureWhite);
  for (const Event& event : events) {
    if (event.day != today || area.h < 20) {
      continue;
    }
    Rect row = area.takeTop(44);
    drawSeparator(c, row, 0);
    c.text(event.time, row.takeLeft(62).inset(10, 0), {15, hex(0x7b868a), false, Align::Right});
    c.circle({row.x + 6, row.midY()}, 5).fill(Paint::vertical(row, lighter(event.color, 0.4), event.color));
    c.text(event.title, {row.x + 20, row.y + 4, row.w - 24, 20}, {16, hex(0x1c2426), true});
    c.text(event.place, {row.x + 20, row.y + 23, row.w - 24, 16}, {12, hex(0x7b868a)});
  }
  while (area.h > 0) {
    drawSeparator(c, area.takeTop(44), 0, hex(0xe6e8ea));
  }
}

}  // namespace

void drawCalendarScreen(Canvas& c) {
  Rect area = c.bounds();
  drawStatusGround(c, area, tint);
  drawNavBar(c, area, {tint, "October 2012", "Calendars", "+"});
  const Rect bar = drawToolBar(c, area, tint);
  drawBarButton(c, {bar.x + 6, bar.y + 7, 56, 30}, tint, "Today");
  drawSegments(c, centeredRect({bar.midX() + (c.isPad() ? 0 : 28), bar.midY()}, 186, 30),
               {"List", "Day", "Month"}, 2, tint);
  const Canvas::Saved saved(c);
  c.rect(area).clip();
  drawMonth(c, area.takeTop(c.isPad() ? 18 + 5 * 128 : 18 + 5 * 46));
  drawAgenda(c, area);
  const Rect shade{area.x, area.y, area.w, 5};
  c.shadeRect(shade, black(0.2), black(0));
}

}  // namespace draw_resources
