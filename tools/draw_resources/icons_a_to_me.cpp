// Icons: Calendar, Camera, Clock, Mail, Maps, Messages.

#include "tools/draw_resources/icons.h"

namespace draw_resources {
namespace {

constexpr Rect face{0, 0, 57, 57};

void drawBubble(Canvas& c, const Rect& box, const char* tail, const Paint& paint) {
  c.roundRect(box, 9).path(tail).fill(paint);
}

}  // namespace

void drawCalendarIcon(Canvas& c) {
  c.shadeRect(face, hex(0x37b3a6), hex(0x0f6f6c));
  const Rect sheet{9, 13, 39, 36};
  c.softShadow(sheet, 3, 3, 0.5);
  c.roundRect(sheet, 3).fill(Paint::vertical(sheet, pureWhite, hex(0xe6ece9)));
  for (int i = 0; i < 20; ++i) {
    const Point day = sheet.inset(4, 4).offset(0, 2).cell(i % 5, i / 5, 5, 4).center();
    const bool isToday = i == 13;
    const double side = isToday ? 6.4 : 4;
    c.roundRect(centeredRect(day, side, side), 1).fill(isToday ? hex(0xe8573f) : hex(0x9fb8b5));
  }
  for (double x = 16; x < 45; x += 8.3) {  // the rings
    c.line({x, 9}, {x, 16}).stroke(hex(0x2d4f4e), 3);
    c.line({x, 9}, {x, 15}).stroke(hex(0xdfeceb), 1.6);
  }
}

void drawCameraIcon(Canvas& c) {
  c.shadeRect(face, hex(0x5b6068), hex(0x25282d));
  const Point middle{28.5, 29};
  c.shadeDisc(middle, 21.5, hex(0xd5d9de), hex(0x70767f));
  c.circle(middle, 19.5).fill(hex(0x15171b));
  // Six blades of an iris, each from the rim to the next corner of the opening.
  constexpr unsigned blades[] = {0xf2b134, 0xed7a3a, 0xd94f5c, 0x8f5bb5, 0x3f86c6, 0x4bb38a};
  for (int i = 0; i < 6; ++i) {
    const Canvas::Saved saved(c);
    c.rotateAbout(middle, i * 60);
    c.path("M35.5 29 L44.36 36.4 A28.5 29 17.5 25 85 L32 35.06 Z")
        .fillKeep(hex(blades[i]))
        .stroke(black(0.3), 0.7);
  }
  c.circle({26.4, 26.6}, 1.5).fill(white(0.7));
  c.circle({48, 9}, 2.6).fillKeep(hex(0xff6b57)).stroke(black(0.4), 0.8);
}

void drawClockIcon(Canvas& c) {
  c.shadeRect(face, hex(0x2b4a86), hex(0x0f1c3f));
  const Point middle{28.5, 28.5};
  c.shadeDisc(middle, 22, hex(0x0f1c3c), hex(0x32548f));
  c.circle(middle, 20.5).stroke(Paint::vertical(face, hex(0xffe19a), hex(0xc8862a)), 2.6);
  for (int hour = 0; hour < 12; ++hour) {
    const bool isQuarter = hour % 3 == 0;
    const Canvas::Saved saved(c);
    c.rotateAbout(middle, hour * 30);
    c.line({28.5, 12.5}, {28.5, isQuarter ? 16.5 : 13.5}).stroke(hex(0xfbe9c4), isQuarter ? 2 : 1.2);
  }
  c.path("M28.5 28.5 A28.5 28.5 15 -90 20 Z").fill(hex(0xf3b64c, 0.35));
  c.path("M28.5 28.5 L28.5 15.5").stroke(pureWhite, 2.6);
  c.path("M28.5 28.5 L38.5 32").stroke(pureWhite, 3.2);
  c.circle(middle, 2.6).fill(hex(0xf3b64c));
}

void drawMailIcon(Canvas& c) {
  c.shadeRect(face, hex(0xd9694a), hex(0x99331f));
  c.rotateAbout(face.center(), -8);
  const Rect letter{8, 16, 41, 28};
  c.softShadow(letter, 2, 3, 0.55);
  c.roundRect(letter, 2).fill(Paint::vertical(letter, hex(0xfffaf0), hex(0xe9dcc4)));
  c.path("M9 43 L23 29 M48 43 L34 29").stroke(hex(0xc5b391), 1);
  c.path("M8.6 16.6 L48.4 16.6 L28.5 34 Z").fillKeep(Paint::vertical(letter, hex(0xfffdf7), hex(0xe3d4b6)));
  c.stroke(hex(0xbfab86), 1);
  c.shadeDisc({28.5, 32.5}, 5.6, hex(0x4e7fb0), hex(0x1b3c60));  // the seal
  c.circle({28.5, 32.5}, 2.8).stroke(white(0.45), 1);
}

void drawMapsIcon(Canvas& c) {
  c.shadeRect(face, hex(0xd7e7b5), hex(0x8fbf74));
  c.path("M0 34 L20 40 L38 57 L0 57 Z").fill(hex(0x69b3d6));
  c.path("M34 0 L57 0 L57 20 L40 14 Z").fill(hex(0x6fae5b));
  c.path("M-2 22 C16 24 22 10 24 -2").stroke(white(0.9), 4);
  c.path("M59 30 C40 26 34 40 44 59").strokeKeep(hex(0xd89a35), 7).stroke(hex(0xffd675), 5);
  c.path("R19 0 0.8 57 R38 0 0.8 57").fill(black(0.16));  // the folds
  c.path("R19.8 0 18.2 57").fill(black(0.06));
  c.path("O9 46 1.6 O13 40 1.6 O17 34.5 1.6 O21.5 30 1.6").fill(hex(0x7a2f4a));
  c.path("M27 11 L27 31").stroke(hex(0x5a2036), 2.4);
  c.path("M28 10.5 L44 14 L40 18 L43 23 L28 21.5 Z");
  c.fill(Paint::vertical({0, 10, 1, 14}, hex(0xd8456d), hex(0x9c2149)));
}

void drawMessagesIcon(Canvas& c) {
  c.shadeRect(face, hex(0x9a72cf), hex(0x4c2a8a));
  drawBubble(c, {7.5, 10.8, 32, 22}, "M13 30 L22 30 L10 39 Z", black(0.25));
  drawBubble(c, {7.5, 9.8, 32, 22}, "M13 29 L22 29 L10 38 Z",
             Paint::vertical({0, 10, 1, 28}, hex(0xffe9a8), hex(0xf3b53f)));
  drawBubble(c, {20, 27.2, 30, 17}, "M36 42 L45 42 L44 51 Z", black(0.28));
  drawBubble(c, {20, 26.2, 30, 17}, "M36 41 L45 41 L44 50 Z",
             Paint::vertical({0, 26, 1, 23}, pureWhite, hex(0xd9d5ea)));
  c.path("O28 34.7 2.1 O35 34.7 2.1 O42 34.7 2.1").fill(hex(0x6a4aa5));
  c.path("M14 17 L32 17 M14 22 L25 22").stroke(hex(0xa8701a, 0.75), 2);
}

}  // namespace draw_resources
