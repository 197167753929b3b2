#include <algorithm>

#include "tools/draw_resources/screens.h"
#include "tools/draw_resources/widgets.h"

namespace draw_resources {
namespace {

constexpr Color tint = hex(0x5e4a8f);
constexpr Color mine = hex(0xb9a3e6);
constexpr Color theirs = hex(0xe9e7ee);
constexpr double lineHeight = 20;

struct Message {
  bool isMine;
  std::string_view text;
};
constexpr Message messages[] = {
    {false, "Did the boat survive the storm?"},
    {true, "Barely a scratch! The cover flew into the neighbours' pear tree though"},
    {false, "Ha! Free pears then"},
    {true, "Two buckets. Want some?"},
    {false, "Always. I could bake on Friday if you bring them round"},
    {true, "Deal. Seven o'clock?"},
    {false, "Seven it is. Bring Hanna!"},
    {true, "She asks whether there will be cream"},
    {false, "What a question. Whipped, with a pinch of cinnamon"},
    {true, "See you Friday then"},
};

constexpr ListRow talks[] = {
    {"Radu", "17:40", "See you Friday then"},
    {"Ines", "15:02", "The seals are back!"},
    {"Choir", "13:27", "Aiko: altos at six, please"},
    {"Mama", "12:01", "Have you eaten?"},
    {"Olu", "Wed", "Checkmate. Again."},
    {"Jonas", "Wed", "Stairs are dry now"},
    {"Aiko", "Tue", "You blink in all of them"},
    {"Hanna", "Tue", "can I have a telescope"},
    {"Plumber", "Mon", "On my way"},
};

const TextStyle bubbleText{16, hex(0x1d1a26)};
constexpr double bubblePaddingX = 13;
constexpr double bubblePaddingY = 6;
constexpr double bubbleGap = 9;

/// The bubble at the top of the area, at the side of who wrote it.
Rect bubbleBox(Canvas& c, const Rect& area, const Message& message) {
  constexpr double margin = 12;
  const Rect text = c.paragraphBounds(message.text, area.w * 0.68, bubbleText, lineHeight);
  const Rect box{area.x + margin, area.y, text.w + 2 * bubblePaddingX, text.h + 2 * bubblePaddingY};
  return message.isMine ? box.offset(area.w - box.w - 2 * margin, 0) : box;
}

void traceTail(Canvas& c, const Rect& box, bool isMine) {
  const double side = isMine ? box.right() : box.x;
  const double out = isMine ? 1 : -1;
  const double foot = box.bottom();
  c.moveTo({side - 14 * out, foot})
      .curveTo({side - 4 * out, foot}, {side + 3 * out, foot - 1}, {side + 7 * out, foot});
  c.curveTo({side + out, foot - 4}, {side, foot - 8}, {side, foot - 14})
      .lineTo({side - 14 * out, foot - 14})
      .close();
}

void drawBubble(Canvas& c, const Rect& box, const Message& message) {
  constexpr double radius = 15;
  const Color face = message.isMine ? mine : theirs;
  const Paint paint = Paint::vertical(box, lighter(face, 0.45), face);
  c.roundRect(box.offset(0, 1), radius).fill(black(0.28));
  traceTail(c, box.offset(0, 1), message.isMine);
  c.fill(black(0.28));
  traceTail(c, box, message.isMine);
  c.fill(paint);
  c.roundRect(box, radius).fill(paint);
  const Rect sheen{box.x + 6, box.y + 1.5, box.w - 12, 12};
  c.roundRect(sheen, 6).fill(Paint::vertical(sheen, white(0.6), white(0)));
  c.paragraph(message.text, box.inset(bubblePaddingX, bubblePaddingY), bubbleText, lineHeight);
}

void drawTalk(Canvas& c, Rect area) {
  drawNavBar(c, area, {tint, "Radu", c.isPad() ? "" : "Messages", "Edit", true});
  const Rect bar = drawToolBar(c, area, hex(0xa9a9b4));
  c.rect(area).fill(hex(0xdcdfe8));
  drawGlyph(c, Glyph::Camera, {bar.x + 9, bar.midY() - 13, 26, 26}, hex(0x4d4d57));
  const Rect field{bar.x + 44, bar.y + 8, bar.w - 44 - 72, 28};
  c.roundRect(field, 13).fillKeep(pureWhite).stroke(black(0.45), 1);
  c.text("Message", field.inset(12, 0), {15, hex(0xa5a5ad)});
  drawBarButton(c, {bar.right() - 66, bar.y + 7, 60, 30}, tint, "Send");
  const Canvas::Saved saved(c);
  c.rect(area).clip();
  constexpr double dateHeight = 28;
  double height = dateHeight;
  for (const Message& message : messages) {
    height += bubbleBox(c, area, message).h + bubbleGap;
  }
  area.takeTop(std::min(0.0, area.h - height));  // scrolled up to the latest
  c.text("18 October 2012 17:21", area.takeTop(dateHeight),
         {12, hex(0x6d7284), true, Align::Center, white(0.8)});
  for (const Message& message : messages) {
    const Rect box = bubbleBox(c, area, message);
    drawBubble(c, box, message);
    area.takeTop(box.h + bubbleGap);
  }
}

void drawTalkList(Canvas& c, Rect area) {
  drawNavBar(c, area, {tint, "Messages", "Edit", "New"});
  drawList(c, area, talks, tint);
}

}  // namespace

void drawMessagesScreen(Canvas& c) {
  Rect area = c.bounds();
  drawStatusGround(c, area, tint);
  if (!c.isPad()) {
    return drawTalk(c, area);
  }
  const Rect side = area.takeLeft(sideColumnWidth);
  drawTalk(c, area);
  drawTalkList(c, side);
  drawColumnEdge(c, side);
}

}  // namespace draw_resources
