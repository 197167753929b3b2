// Icons: Music, Notes, Phone, Photos, Settings, Weather.

#include <cmath>

#include "tools/draw_resources/icons.h"
#include "tools/draw_resources/scenes.h"

namespace draw_resources {
namespace {

constexpr Rect face{0, 0, 57, 57};

}  // namespace

void drawMusicIcon(Canvas& c) {
  c.shadeRect(face, hex(0xf0609a), hex(0xa31558));
  const Point middle{27, 30};
  c.circle({middle.x, middle.y + 1.5}, 21.5).fill(black(0.3));
  c.shadeDisc(middle, 21.5, hex(0x3a3a42), hex(0x17171b));
  for (double radius = 9.5; radius < 21; radius += 2.4) {
    c.circle(middle, radius).stroke(white(0.09), 0.6);
  }
  c.path("M27 30 A27 30 20.5 200 234 Z M27 30 A27 30 20.5 20 54 Z")
      .fill(white(0.13));  // light on the grooves
  c.shadeDisc(middle, 7.8, hex(0xffd86b), hex(0xef9f2d));
  c.circle(middle, 1.7).fill(hex(0x5c0d33));
  c.path("M51 6 L50 26 L41 36").stroke(hex(0x5c0d33, 0.5), 4);
  c.path("M51 5 L50 25 L41 35").stroke(hex(0xf4f4f6), 2.4);
  c.circle({51, 6}, 3.4).fill(hex(0xd9d9e0));
}

void drawNotesIcon(Canvas& c) {
  c.shadeRect(face, hex(0xc59463), hex(0x83552b));
  c.rotateAbout(face.center(), 5);
  const Rect page{11, 7, 34, 45};
  c.softShadow(page, 2, 3, 0.5);
  c.roundRect(page, 2).fill(Paint::vertical(page, hex(0xfffdf2), hex(0xf0e8cd)));
  c.path("M17 8 L17 51").stroke(hex(0xe0897a), 0.8);
  for (double y = 15; y < 50; y += 6) {
    c.line({12, y}, {44, y}).stroke(hex(0xa9c3d6), 0.8);
  }
  c.path("M20 19.5 C23 15 25 23 28 18.5 C31 15 33 22 37 18.5 M20 25.5 C23 21 25 29 30 24.5")
      .stroke(hex(0x34506e), 1.4);
  c.rotateAbout({36, 34}, 38);  // the pencil
  c.rect({33, 12, 6, 28})
      .fill(Paint::linear({33, 0}, {39, 0}, {{0, hex(0x4fae73)}, {0.5, hex(0x7fd39d)}, {1, hex(0x2f7d50)}}));
  c.path("R33 9 6 4").fill(hex(0xd9707a));
  c.path("R33 12 6 1.6").fill(hex(0xc9ccd1));
  c.path("M33 40 L39 40 L36 48 Z").fill(hex(0xf1d3a4));
  c.path("M35 45.4 L37 45.4 L36 48 Z").fill(hex(0x2b2b2b));
}

void drawPhoneIcon(Canvas& c) {
  c.shadeRect(face, hex(0xf6a24b), hex(0xc75a12));
  const Point middle{28.5, 28.5};
  c.circle({middle.x, middle.y + 1.5}, 22).fill(black(0.25));
  c.shadeDisc(middle, 22, hex(0xfff6e6), hex(0xe2cda9));
  // A dial: ten finger holes, and the stop where the fingers halt.
  for (int hole = 0; hole < 10; ++hole) {
    const double angle = (65 + hole * 29.5) * pi / 180;
    const Point at{middle.x + 15.8 * std::cos(angle), middle.y + 15.8 * std::sin(angle)};
    c.circle({at.x, at.y + 0.6}, 3.3).fill(white(0.9));
    c.shadeDisc(at, 3.3, hex(0x5e2a0a), hex(0xa2531d));
  }
  c.shadeDisc(middle, 8.6, hex(0xd9782b), hex(0xb04d0c));
  c.circle(middle, 4.4).fill(hex(0xffeccb));
  c.path("M38.5 41 L45 47").stroke(hex(0x7b3206), 3);
}

void drawPhotosIcon(Canvas& c) {
  c.shadeRect(face, hex(0xe9eff5), hex(0x9fb4c8));
  for (const double tilt : {-15, 11, -2}) {
    const Canvas::Saved saved(c);
    c.rotateAbout({28.5, 31}, tilt);
    const Rect paper{11, 10, 35, 39};
    c.softShadow(paper, 1, 2, 0.45);
    c.shadeRect(paper, pureWhite, hex(0xefefec));
    drawScene(c, {13.5, 12.5, 30, 28}, {Subject::Balloon, 15});
  }
}

void drawSettingsIcon(Canvas& c) {
  c.shadeRect(face, hex(0x93a1b1), hex(0x465364));
  constexpr double knobs[] = {36, 18, 29};
  constexpr unsigned fills[] = {0x74d0c0, 0xf6c860, 0xf08a6e};
  for (int i = 0; i < 3; ++i) {
    const double y = 14.5 + 14 * i;
    const double knob = knobs[i];
    c.roundRect({8, y - 2.5, 41, 6}, 3).fill(white(0.3));
    c.roundRect({8, y - 3, 41, 6}, 3).fill(hex(0x222b37));
    c.roundRect({8.8, y - 2.2, knob - 8, 4.4}, 2.2).fill(hex(fills[i]));
    c.circle({knob, y + 1.2}, 6.4).fill(black(0.35));
    c.shadeDisc({knob, y}, 6.2, pureWhite, hex(0xb4bcc6));
    c.shadeDisc({knob, y}, 2.4, hex(0x97a1ad), hex(0xdde2e8));
  }
}

void drawWeatherIcon(Canvas& c) {
  c.shadeRect(face, hex(0x8fd0f2), hex(0x2f7fc4));
  c.path("M8 12 L6.4 17 M20 6 L18.4 11 M38 7 L36.4 12 M50 14 L48.4 19 M6 36 L4.4 41")
      .stroke(white(0.75), 1.8);
  c.path("M17 45 L15.4 50 M42 44 L40.4 49 M51 35 L49.4 40 M46 54 L44.4 59 M30 52 L28.4 57")
      .stroke(white(0.75), 1.8);
  c.path("M29 29 L29 45 A25 45 4 0 170").stroke(hex(0x4a2a1c), 2.6);
  // An umbrella of four panels.
  c.path(
      "M8 31 C9 18 18 11.5 28.5 11 C39 11.5 48 18 49 31 C46 27 41 27 38.8 31 C36 27 31 27 28.5 31"
      " C26 27 21 27 18.2 31 C16 27 11 27 8 31 Z");
  c.fill(Paint::vertical({0, 11, 1, 20}, hex(0xf4655c), hex(0xb9222f)));
  c.path("M28.5 11 C21 16 18.5 23 18.2 31 C21 27 26 27 28.5 31 Z").fill(hex(0xffd9b0, 0.9));
  c.path("M28.5 11 C36 16 38.5 23 38.8 31 C41 27 46 27 49 31 C48 18 39 11.5 28.5 11 Z")
      .fill(hex(0xffd9b0, 0.9));
  c.path("M28.5 11 L28.5 8").stroke(hex(0x4a2a1c), 2);
}

}  // namespace draw_resources
