#include "tools/draw_resources/screens.h"
#include "tools/draw_resources/widgets.h"

namespace draw_resources {
namespace {

constexpr Color tint = hex(0x8c4a3c);
constexpr Color faint = hex(0x7d8288);

constexpr ListRow letters[] = {
    {"Ines Moreau", "17:31", "The boat on Saturday",
     "The wind should be kind after all. Shall we meet at the pier at nine? I bring the bread, you the "
     "thermos.",
     true},
    {"Allotment Club", "16:05", "Seed swap: bring what you have",
     "Beans are plenty this year, squash is not. Tables stand ready from two o'clock behind the shed.", true},
    {"Jonas Wirth", "14:48", "Drawings for the stairs",
     "Attached are both versions. I like the second one more; it keeps the old handrail."},
    {"Lantern Books", "12:20", "Your order is on its way",
     "Two books left our shop this morning. They should be with you by Thursday."},
    {"Mama", "09:12", "Plum cake",
     "You asked for the recipe. It is your grandmother's, so the measures are in cups and pinches."},
    {"Hill School", "Wed", "Parents' evening",
     "We look forward to seeing you in the library. Please use the side door."},
    {"Radu Petrescu", "Wed", "Re: Re: Telescope",
     "Jupiter is up before midnight now. Come by when the sky is clear!"},
    {"Coast Rail", "Tue", "Timetable change", "From 22 October the early train leaves four minutes sooner."},
    {"Aiko Tanabe", "Tue", "Choir photos",
     "I put the best ones in a folder. You blink in nearly all of them, sorry."},
    {"Harbour Library", "Mon", "A reminder", "One title is due on Friday. You may keep it two weeks longer."},
    {"Olu Adeyemi", "Mon", "Chess on Thursday?",
     "I have learnt a new opening and need somebody to lose against me."},
};

void drawLetter(Canvas& c, Rect area) {
  c.rect(area).fill(pureWhite);
  Rect head = area.takeTop(112);
  c.shadeRect(head, hex(0xf3f1ee), hex(0xe7e3de));
  drawSeparator(c, head, 0, hex(0xbdb7b0));
  head = head.inset(20, 12);
  c.text("From: Ines Moreau", head.takeTop(24), {15, accent, true});
  c.text("To: me, Radu Petrescu", head.takeTop(20), {14, faint});
  c.text("The boat on Saturday", head.takeTop(26), {18, pureBlack, true});
  c.text("18 October 2012 17:31", head.takeTop(18), {12, faint});
  Rect body = area.inset(20, 20);
  for (const std::string_view paragraph :
       {"Dear both,",
        "the wind should be kind after all. Shall we meet at the pier at nine? I bring the bread, you the "
        "thermos. Radu has promised to wake up.",
        "If the fog stays we can still row to the island and look for the seals; they were on the north side "
        "last week, fat and bored.",
        "Please tell me by Friday whether Hanna comes along, so that I find a fourth life jacket. The small "
        "one has a broken buckle which I mean to mend tonight.",
        "Until Saturday,\nInes"}) {
    body.takeTop(c.paragraph(paragraph, body, {17, hex(0x1c1c1e)}, 25) + 14);
  }
}

}  // namespace

void drawMailScreen(Canvas& c) {
  Rect area = c.bounds();
  drawStatusGround(c, area, tint);
  const auto drawColumn = [&](Rect column, const NavBar& nav, const std::vector<Glyph>& tools,
                              auto drawBody) {
    const Canvas::Saved saved(c);
    c.rect(column).clip();
    drawNavBar(c, column, nav);
    const Rect bar = drawToolBar(c, column, tint);
    drawToolItems(c, bar, tools);
    c.rect(column).clip();
    drawBody(c, column);
  };
  const Rect side = c.isPad() ? area.takeLeft(sideColumnWidth) : area;
  drawColumn(side, {tint, "Inbox (2)", "Boxes", "Edit", true}, {Glyph::Reload, Glyph::Pencil},
             [](Canvas& c, const Rect& area) { drawList(c, area, letters, tint); });
  if (c.isPad()) {
    drawColumn(area, {tint, "1 of 11"}, {Glyph::Flag, Glyph::Trash, Glyph::Box, Glyph::Pencil}, drawLetter);
    drawColumnEdge(c, side);
  }
}

}  // namespace draw_resources
