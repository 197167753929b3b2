#include "tools/draw_resources/widgets.h"

#include <algorithm>

namespace draw_resources {
namespace {

constexpr double rowHeight = 44;
constexpr double groupMargin = 10;
constexpr double buttonHeight = 30;
constexpr double buttonRadius = 5;

void drawBarGround(Canvas& c, const Rect& bar, Color tint) {
  c.shadeRect(bar, lighter(tint, 0.3), darker(tint, 0.16));
  c.rect({bar.x, bar.y, bar.w, 1}).fill(white(0.35));
  c.rect({bar.x, bar.bottom() - 1, bar.w, 1}).fill(darker(tint, 0.5));
}

TextStyle barText(double size) { return {size, pureWhite, true, Align::Center, black(0.45), -1}; }

double buttonWidth(Canvas& c, std::string_view label) {
  constexpr double padding = 22;
  return static_cast<int>(c.textWidth(label, barText(12)) + padding);
}

/// A rectangle with an arrowhead for its left side.
void traceBackButton(Canvas& c, const Rect& box) {
  const double arrow = box.x + 10;
  const Rect corners = box.inset(buttonRadius, buttonRadius);
  c.moveTo({box.x, box.midY()}).lineTo({arrow, box.y});
  c.arc({corners.right(), corners.y}, buttonRadius, 270, 360);
  c.arc({corners.right(), corners.bottom()}, buttonRadius, 0, 90).lineTo({arrow, box.bottom()}).close();
}

}  // namespace

double barHeight(const Canvas& c) { return c.isLandscape() && !c.isPad() ? 32 : 44; }

void drawStatusGround(Canvas& c, Rect& area, Color tint) {
  const Rect bar = area.takeTop(statusBarHeight);
  c.shadeRect(bar, darker(tint, 0.45), darker(tint, 0.62));
}

void drawNavBar(Canvas& c, Rect& area, const NavBar& bar) {
  const Rect ground = area.takeTop(barHeight(c));
  drawBarGround(c, ground, bar.tint);
  c.shadeRect({area.x, area.y, area.w, 3}, black(0.22), black(0));

  constexpr double edge = 6;
  Rect row = ground.inset(edge, (ground.h - std::min(buttonHeight, ground.h - 6)) / 2);
  double taken = edge;
  if (!bar.left.empty()) {
    const Rect box = row.takeLeft(buttonWidth(c, bar.left) + (bar.leftGoesBack ? edge : 0));
    drawBarButton(c, box, bar.tint, bar.left, bar.leftGoesBack);
    taken = box.w + 2 * edge;
  }
  if (!bar.right.empty()) {
    const Rect box = row.takeRight(buttonWidth(c, bar.right));
    drawBarButton(c, box, bar.tint, bar.right);
    taken = std::max(taken, box.w + 2 * edge);
  }
  c.text(bar.title, ground.inset(taken, 0), barText(ground.h < 40 ? 17 : 20));
}

Rect drawToolBar(Canvas& c, Rect& area, Color tint) {
  const Rect bar = area.takeBottom(barHeight(c));
  drawBarGround(c, bar, tint);
  c.rect({bar.x, bar.y - 1, bar.w, 1}).fill(darker(tint, 0.5));
  return bar;
}

void drawToolItems(Canvas& c, const Rect& bar, const std::vector<Glyph>& glyphs) {
  constexpr double glyphPoints = 22;
  constexpr double edge = 12;
  const double step = (bar.w - 2 * edge - glyphPoints) / static_cast<double>(glyphs.size() - 1);
  for (size_t i = 0; i < glyphs.size(); ++i) {
    const Rect box{bar.x + edge + step * static_cast<double>(i), bar.midY() - glyphPoints / 2, glyphPoints,
                   glyphPoints};
    drawGlyph(c, glyphs[i], box.offset(0, -1), black(0.4));
    drawGlyph(c, glyphs[i], box, pureWhite);
  }
}

void drawTabBar(Canvas& c, Rect& area, const std::vector<TabItem>& items, size_t selected, Color highlight) {
  constexpr double glyphPoints = 26;
  constexpr double tabletItemWidth = 110;  // items keep together in the middle of a wide bar
  const Rect bar = area.takeBottom(tabBarHeight);
  c.shadeRect(bar, hex(0x3a3c41), hex(0x0a0a0c));
  c.rect({bar.x, bar.y, bar.w, 1}).fill(white(0.16));
  const int count = static_cast<int>(items.size());
  Rect row = bar;
  if (c.isPad() && row.w > tabletItemWidth * count) {
    row = centeredRect(bar.center(), tabletItemWidth * count, bar.h);
  }
  for (int i = 0; i < count; ++i) {
    const bool isSelected = static_cast<size_t>(i) == selected;
    const Rect cell = row.cell(i, 0, count, 1);
    if (isSelected) {
      c.roundRect(cell.inset(2, 3), 4).fill(white(0.15));
    }
    const Color color = isSelected ? highlight : hex(0x9b9ea5);
    const TabItem& item = items[static_cast<size_t>(i)];
    drawGlyph(c, item.glyph, centeredRect({cell.midX(), cell.y + 19}, glyphPoints, glyphPoints), color);
    c.text(item.label, {cell.x, cell.bottom() - 16, cell.w, 13},
           {10, isSelected ? pureWhite : hex(0x9b9ea5), true, Align::Center});
  }
}

void drawBarButton(Canvas& c, const Rect& box, Color tint, std::string_view label, bool pointsBack) {
  const auto trace = [&](const Rect& shape) {
    pointsBack ? traceBackButton(c, shape) : void(c.roundRect(shape, buttonRadius));
  };
  trace(box.offset(0, 1));
  c.fill(white(0.22));
  trace(box);
  c.fillKeep(Paint::vertical(box, darker(tint, 0.02), darker(tint, 0.34))).stroke(darker(tint, 0.55), 1);
  c.text(label, box.inset(4, 0).offset(pointsBack ? 4 : 0, 0), barText(12));
}

void drawSegments(Canvas& c, const Rect& box, const std::vector<std::string_view>& labels, size_t selected,
                  Color tint) {
  const int count = static_cast<int>(labels.size());
  const Canvas::Saved saved(c);
  c.roundRect(box.offset(0, 1), buttonRadius).fill(white(0.25));
  c.roundRect(box, buttonRadius).clip();
  for (int i = 0; i < count; ++i) {
    const Rect cell = box.cell(i, 0, count, 1);
    const bool isSelected = static_cast<size_t>(i) == selected;
    const Color face = isSelected ? darker(tint, 0.35) : lighter(tint, 0.12);
    c.shadeRect(cell, lighter(face, isSelected ? 0 : 0.25), face);
    if (i > 0) {
      c.rect({cell.x, cell.y, 1, cell.h}).fill(darker(tint, 0.4));
    }
    c.text(labels[static_cast<size_t>(i)], cell, barText(12));
  }
  c.roundRect(box, buttonRadius).stroke(darker(tint, 0.5), 2);
}

void drawSearchField(Canvas& c, const Rect& box, std::string_view text, Color textColor) {
  c.roundRect(box, box.h / 2).fillKeep(pureWhite).stroke(black(0.45), 1);
  c.roundRect(box.inset(1, 1).offset(0, 0.5), box.h / 2 - 1).stroke(black(0.1), 1);
  const Rect lens = centeredRect({box.x + 17, box.midY()}, 14, 14);
  drawGlyph(c, Glyph::Lens, lens, hex(0x8a8f97));
  c.text(text, {box.x + 30, box.y, box.w - 40, box.h}, {14, textColor});
}

void drawSeparator(Canvas& c, const Rect& row, double leftInset, Color color) {
  c.rect({row.x + leftInset, row.bottom() - 1, row.w - leftInset, 1}).fill(color);
}

void drawChevron(Canvas& c, const Rect& row, Color color) {
  const Point tip{row.right() - 12, row.midY()};
  c.moveTo({tip.x - 5, tip.y - 5}).lineTo(tip).lineTo({tip.x - 5, tip.y + 5}).stroke(color, 2.5);
}

void drawKnob(Canvas& c, Point center, double radius) {
  c.panel(centeredRect(center, 2 * radius, 2 * radius), radius, pureWhite, hex(0xbcbfc4), black(0.4));
}

void drawSwitch(Canvas& c, const Rect& row, bool on) {
  Rect track = centeredRect({row.right() - 46, row.midY()}, 72, 26);
  const Color face = on ? hex(0x2f8f83) : hex(0xe4e5e8);
  c.panel(track, 13, darker(face, 0.15), lighter(face, 0.2), black(0.35));
  const Rect knob = on ? track.takeRight(26) : track.takeLeft(26);
  c.text(on ? "ON" : "OFF", track, {14, on ? pureWhite : hex(0x82868d), true, Align::Center});
  drawKnob(c, knob.center(), 13);
}

void drawPinstripes(Canvas& c, const Rect& area) {
  c.rect(area).fill(hex(0xcfd4d8));
  for (double x = area.x; x < area.right(); x += 7) {
    c.rect({x, area.y, 2, area.h}).fill(hex(0xc6ccd1));
  }
}

void drawGroup(Canvas& c, Rect& area, std::string_view header, const std::vector<GroupRow>& rows) {
  if (!header.empty()) {
    c.text(header, area.takeTop(36).inset(groupMargin + 10, 0).offset(0, 3),
           {17, hex(0x4b5662), true, Align::Left, white(0.8)});
  } else {
    area.takeTop(groupMargin);
  }
  const Rect box = area.takeTop(rowHeight * static_cast<double>(rows.size())).inset(groupMargin, 0);
  area.takeTop(groupMargin / 2);
  c.roundRect(box.offset(0, 1), 9).fill(white(0.8));
  c.roundRect(box, 9).fillKeep(hex(0xf8f9fa)).stroke(hex(0xa6adb5), 1);
  Rect remaining = box;
  for (const GroupRow& row : rows) {
    const Rect line = remaining.takeTop(rowHeight);
    const bool isLast = remaining.h < 1;
    if (row.selected) {
      const Canvas::Saved saved(c);
      c.roundRect(box, 9).clip();
      c.shadeRect(line, lighter(accent, 0.2), darker(accent, 0.1));
    }
    if (!isLast) {
      drawSeparator(c, line, 0, hex(0xc3c8ce));
    }
    double textLeft = 12;
    if (row.badge.a > 0) {
      const Rect badge{line.x + 10, line.midY() - 14, 28, 28};
      c.roundRect(badge, 6).fill(Paint::vertical(badge, lighter(row.badge, 0.22), darker(row.badge, 0.1)));
      drawGlyph(c, row.glyph, badge.inset(4.5, 4.5), pureWhite);
      textLeft = 48;
    }
    const Color ink = row.selected ? pureWhite : hex(0x16181b);
    c.text(row.label, line.inset(textLeft, 0), {17, ink, true});
    if (row.accessory == Accessory::SwitchOn || row.accessory == Accessory::SwitchOff) {
      drawSwitch(c, line, row.accessory == Accessory::SwitchOn);
      continue;
    }
    const bool hasChevron = row.accessory == Accessory::Chevron;
    c.text(row.value, {line.x + 120, line.y, line.w - 120 - (hasChevron ? 28 : 12), line.h},
           {17, row.selected ? pureWhite : hex(0x41618a), false, Align::Right});
    if (hasChevron) {
      drawChevron(c, line, row.selected ? pureWhite : hex(0x9aa2ad));
    }
  }
}

void drawList(Canvas& c, Rect area, std::span<const ListRow> rows, Color tint, Color paper) {
  constexpr double previewLine = 16;
  const double height = rows.front().preview.empty() ? 56 : 82;
  bool isOpen = c.isPad();
  c.rect(area).fill(paper);
  for (const ListRow& row : rows) {
    const Rect ground = area.takeTop(height);
    if (isOpen) {
      c.shadeRect(ground, lighter(tint, 0.25), tint);
    }
    const auto ink = [&](Color color) { return isOpen ? white(0.9) : color; };
    drawSeparator(c, ground, 0, darker(paper, 0.18));
    drawChevron(c, ground, ink(darker(paper, 0.35)));
    if (row.isMarked) {
      c.shadeDisc({ground.x + 12, ground.y + 17}, 5.5, hex(0xf3a48d), ink(hex(0xcf4a2c)));
    }
    Rect lines = ground.inset(26, 6);
    Rect head = lines.takeTop(22);
    c.text(row.time, head.takeRight(52), {13, ink(accent), false, Align::Right});
    c.text(row.title, head, {17, ink(pureBlack), true});
    c.text(row.subtitle, lines.takeTop(17), {14, ink(darker(paper, 0.7))});
    const Canvas::Saved saved(c);
    c.rect({lines.x, lines.y, lines.w, 2 * previewLine}).clip();
    c.paragraph(row.preview, lines, {13, ink(darker(paper, 0.5))}, previewLine);
    isOpen = false;
  }
}

void drawColumnEdge(Canvas& c, const Rect& side) {
  c.rect({side.right() - 1, side.y, 1, side.h}).fill(black(0.65));
  const Rect shade{side.right(), side.y, 5, side.h};
  c.rect(shade).fill(Paint::linear({shade.x, 0}, {shade.right(), 0}, {{0, black(0.2)}, {1, black(0)}}));
}

}  // namespace draw_resources
