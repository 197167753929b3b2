#include "tools/draw_resources/screens.h"
#include "tools/draw_resources/widgets.h"

namespace draw_resources {
namespace {

constexpr Color tint = hex(0x2b3440);

struct Key {
  std::string_view digit;
  std::string_view letters;
};
constexpr Key keys[] = {{"1", ""},     {"2", "ABC"}, {"3", "DEF"},  {"4", "GHI"}, {"5", "JKL"}, {"6", "MNO"},
                        {"7", "PQRS"}, {"8", "TUV"}, {"9", "WXYZ"}, {"*", ""},    {"0", "+"},   {"#", ""}};

void drawKeyGround(Canvas& c, const Rect& key, Color top, Color bottom) {
  c.shadeRect(key, top, bottom);
  c.rect({key.x, key.y, key.w, 1}).rect({key.x, key.y, 1, key.h}).fill(white(0.13));
  c.rect({key.x, key.bottom() - 1, key.w, 1}).rect({key.right() - 1, key.y, 1, key.h}).fill(black(0.6));
}

void drawKeypad(Canvas& c, Rect area, double rowHeight) {
  Rect actions = area.takeBottom(rowHeight);
  for (int i = 0; i < 12; ++i) {
    const int left = static_cast<int>(area.w * (i % 3) / 3);
    const int right = static_cast<int>(area.w * (i % 3 + 1) / 3);
    const Rect key{area.x + left, area.y + rowHeight * (i / 3), static_cast<double>(right - left), rowHeight};
    drawKeyGround(c, key, hex(0x4a5361), hex(0x1e242d));
    const bool hasLetters = !keys[i].letters.empty();
    const Rect digit = hasLetters ? key.offset(0, -7) : key;
    c.text(keys[i].digit, digit, {34, pureWhite, true, Align::Center, black(0.7), -1});
    c.text(keys[i].letters, {key.x, key.midY() + 11, key.w, 16}, {12, hex(0xaeb9c8), true, Align::Center});
  }
  const int third = static_cast<int>(actions.w / 3);
  const Rect add = actions.takeLeft(third);
  const Rect erase = actions.takeRight(third);
  drawKeyGround(c, add, hex(0x3c4552), hex(0x171c24));
  drawKeyGround(c, erase, hex(0x3c4552), hex(0x171c24));
  drawKeyGround(c, actions, hex(0xf4ab5a), hex(0xc35f14));
  drawGlyph(c, Glyph::Person, centeredRect({add.midX() - 6, add.midY()}, 26, 26), hex(0xdfe5ee));
  c.text("+", {add.midX() + 9, add.y - 6, 16, add.h}, {20, hex(0xdfe5ee), true});
  {
    const Canvas::Saved saved(c);
    const Point middle{actions.midX() - 26, actions.midY()};
    c.rotateAbout(middle, -35);
    drawGlyph(c, Glyph::Receiver, centeredRect(middle, 30, 30), pureWhite);
  }
  c.text("Call", {actions.midX() - 4, actions.y, 60, actions.h},
         {20, pureWhite, true, Align::Left, black(0.45), -1});
  drawGlyph(c, Glyph::Erase, centeredRect(erase.center(), 34, 34), hex(0xdfe5ee));
}

}  // namespace

void drawPhoneScreen(Canvas& c) {
  Rect area = c.bounds();
  drawStatusGround(c, area, tint);
  drawTabBar(c, area,
             {{Glyph::Star, "Favourites"},
              {Glyph::Clock, "Recents"},
              {Glyph::Person, "Contacts"},
              {Glyph::Keypad, "Keypad"},
              {Glyph::Tape, "Voice Box"}},
             3, hex(0xf4ab5a));
  c.shadeRect(area, hex(0x3b4654), hex(0x12161c));
  constexpr double widest = 480;  // keys as wide as a whole tablet would be out of reach
  if (area.w > widest) {
    area = centeredRect(area.center(), widest, 640);
    c.softShadow(area, 8, 16, 0.8);
  }
  constexpr int rows = 5;
  const double rowHeight = static_cast<int>(area.h * 0.82 / rows);
  Rect display = area.takeTop(area.h - rows * rowHeight);
  c.rect(display).fill(Paint::vertical(
      display, {{0, hex(0x2a3442)}, {0.5, hex(0x3f4d60)}, {0.5, hex(0x364355)}, {1, hex(0x4a5a70)}}));
  c.text("020 555 0147", {display.x, display.y + display.h * 0.12, display.w, display.h * 0.5},
         {34, pureWhite, false, Align::Center, black(0.6), -1});
  c.text("Ines, mobile", {display.x, display.y + display.h * 0.62, display.w, 20},
         {15, hex(0xb9c6d8), true, Align::Center});
  drawKeypad(c, area, rowHeight);
}

}  // namespace draw_resources
