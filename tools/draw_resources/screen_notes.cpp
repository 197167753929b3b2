#include "tools/draw_resources/screens.h"
#include "tools/draw_resources/widgets.h"

namespace draw_resources {
namespace {

constexpr Color tint = hex(0x8a5a34);
constexpr Color paper = hex(0xfdf3b4);
constexpr Color ink = hex(0x4a3420);
constexpr double line = 26;  // between two rules of the paper

constexpr std::string_view noteText =
    "For the cabin\n"
    "– matches, two lanterns\n"
    "– the good bread knife\n"
    "– plum jam (3 jars left)\n"
    "– rope for the swing\n"
    "– Hanna's telescope\n"
    "\n"
    "Ask Ines about the key. Under the third stone, or was it the fourth?\n"
    "\n"
    "Fix: shutter on the north side, the squeaky step, chimney hat.";

constexpr ListRow entries[] = {{"For the cabin", "17:12", "matches, two lanterns"},
                               {"Words I like", "Wed", "gloaming, thrum, brackish"},
                               {"Stairs: measures", "Tue", "tread 27, rise 18"},
                               {"Plum cake, Mama", "Mon", "two cups, three pinches"},
                               {"Books lent out", "12 Oct", "Radu has the atlas"},
                               {"Bird count", "9 Oct", "siskins: 14"},
                               {"Presents", "2 Oct", "Hanna: star map"}};

void drawTornEdge(Canvas& c, const Rect& area) {
  c.moveTo({area.x, area.y});
  for (double x = area.x; x < area.right(); x += 8) {
    c.lineTo({x + 4, area.y + 5}).lineTo({x + 8, area.y});
  }
  c.close().fill(darker(tint, 0.25));
}

void drawPage(Canvas& c, Rect area) {
  c.shadeRect(area, lighter(paper, 0.25), paper);
  drawTornEdge(c, area);
  Rect head = area.takeTop(34);
  c.text("Today", {head.x + 36, head.y + 6, 80, 22}, {13, hex(0x9a6a3a), true});
  c.text("18 Oct 17:12", {head.right() - 120, head.y + 6, 110, 22}, {13, hex(0x9a6a3a), true, Align::Right});
  for (double y = area.y; y < area.bottom(); y += line) {
    c.rect({area.x, y, area.w, 1}).fill(hex(0xc9b57c, 0.75));
  }
  c.rect({area.x + 26, head.y, 1, area.bottom() - head.y})
      .rect({area.x + 29, head.y, 1, area.bottom() - head.y})
      .fill(hex(0xc98a6c, 0.6));
  c.paragraph(noteText, {area.x + 38, area.y + 2, area.w - 52, area.h}, {18, ink}, line);
}

}  // namespace

void drawNotesScreen(Canvas& c) {
  Rect area = c.bounds();
  drawStatusGround(c, area, tint);
  Rect side = c.isPad() ? area.takeLeft(sideColumnWidth) : Rect{};
  const Rect edge = side;
  drawNavBar(c, area, {tint, "For the cabin", c.isPad() ? "" : "Notes", "+", true});
  drawToolItems(c, drawToolBar(c, area, tint), {Glyph::Lines, Glyph::Box, Glyph::Trash, Glyph::Pencil});
  {
    const Canvas::Saved saved(c);
    c.rect(area).clip();
    drawPage(c, area);
  }
  if (c.isPad()) {
    drawNavBar(c, side, {tint, "7 Notes"});
    drawList(c, side, entries, tint, paper);
    drawColumnEdge(c, edge);
  }
}

}  // namespace draw_resources
