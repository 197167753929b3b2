#include <algorithm>
#include <cmath>
#include <string>

#include "tools/draw_resources/scenes.h"
#include "tools/draw_resources/screens.h"
#include "tools/draw_resources/widgets.h"

namespace draw_resources {
namespace {

constexpr Color tint = hex(0x3b3038);
constexpr Color pink = hex(0xf0609a);

struct Track {
  std::string_view title;
  std::string_view length;
};
constexpr Track tracks[] = {{"Low Tide", "3:12"},    {"Lantern Street", "4:05"},
                            {"Paper Boats", "3:48"}, {"The Quiet Carriage", "5:21"},
                            {"Pear Tree", "2:57"},   {"Rooftop Weather", "4:33"},
                            {"Salt", "3:39"},        {"Home by Dark", "6:02"}};
constexpr size_t playing = 2;

/// The cover of the album, in the middle of the area: a moon over a still sea.
void drawCover(Canvas& c, const Rect& area, double side) {
  const Rect box{std::round(area.midX() - side / 2), std::round(area.midY() - side / 2), side, side};
  c.softShadow(box, 2, 8, 0.7);
  const Canvas::Saved saved(c);
  c.place({box.x, box.y}, box.w / 100);
  const Rect sky{0, 0, 100, 61};
  const Rect sea{0, 61, 100, 39};
  c.shadeRect(sky, hex(0x3a1c5c), hex(0xd8456d));
  c.shadeDisc({50, 52}, 22, hex(0xffe9b0), hex(0xf79d5c));
  c.shadeRect(sea, hex(0x63275a), hex(0x1b0f2e));
  for (int i = 0; i < 9; ++i) {
    const double width = (34 - 3 * i) * (i % 2 == 0 ? 1 : 0.7);
    c.roundRect(centeredRect({50, 64 + 3.6 * i}, width, 1.3), 0.6).fill(hex(0xffc27d, 0.75 - 0.06 * i));
  }
  c.path("M36 64 L62 64 L57 69 L41 69 Z").fill(hex(0x140a22));
  c.path("M38 63 L49 47 L60 63 Z").fill(hex(0xfdf6ea));
  c.text("PAPER BOATS", {0, 8, 100, 10}, {7.5, hex(0xffe9c8), true, Align::Center});
  c.text("Nora & the Tides", {0, 18, 100, 7}, {4.8, hex(0xffe9c8, 0.8), false, Align::Center});
}

void drawSlider(Canvas& c, const Rect& track, double value) {
  c.roundRect(track, track.h / 2).fillKeep(hex(0x0b0a0c)).stroke(white(0.14), 1);
  c.roundRect({track.x, track.y, track.w * value, track.h}, track.h / 2)
      .fill(Paint::vertical(track, lighter(pink, 0.3), darker(pink, 0.2)));
  drawKnob(c, {track.x + track.w * value, track.midY()}, 8);
}

void drawProgress(Canvas& c, const Rect& row) {
  const TextStyle time{12, hex(0xd9d3d8), true, Align::Center};
  c.text("1:26", {row.x, row.y, 44, row.h}, time);
  c.text("-2:22", {row.right() - 46, row.y, 44, row.h}, time);
  drawSlider(c, {row.x + 52, row.midY() - 3, row.w - 106, 6}, 0.38);
}

void drawControls(Canvas& c, Rect area) {
  const Rect buttons = area.takeTop(area.h * 0.58);
  const double step = std::min(buttons.w / 3.6, 130.0);
  drawGlyph(c, Glyph::Previous, centeredRect({buttons.midX() - step, buttons.midY()}, 30, 30), pureWhite);
  drawGlyph(c, Glyph::Next, centeredRect({buttons.midX() + step, buttons.midY()}, 30, 30), pureWhite);
  drawGlyph(c, Glyph::Pause, centeredRect(buttons.center(), 30, 30), pureWhite);
  const double width = std::min(area.w - 72, 420.0);
  const Rect volume = centeredRect({area.midX(), area.midY() - 2}, width, 6);
  drawGlyph(c, Glyph::Speaker, {volume.x - 28, volume.midY() - 8, 16, 16}, hex(0x9a9098));
  drawSlider(c, volume, 0.64);
}

void drawPanel(Canvas& c, const Rect& area) {
  c.rect(area).fill(Paint::vertical(area, {{0, hex(0x46404a)}, {0.5, hex(0x221e25)}, {1, hex(0x121014)}}));
  c.rect({area.x, area.y, area.w, 1}).fill(white(0.2));
}

void drawTitles(Canvas& c, Rect box) {
  c.text("Nora & the Tides", box.takeTop(18), {13, hex(0xb9aeb8), true, Align::Center});
  c.text("Paper Boats", box.takeTop(22), {17, pureWhite, true, Align::Center});
  c.text("Songs from the Pier", box.takeTop(18), {13, hex(0xb9aeb8), true, Align::Center});
}

void drawTrackList(Canvas& c, Rect area) {
  c.rect(area).fill(hex(0x1c181d));
  for (size_t i = 0; i < std::size(tracks) && area.h > 0; ++i) {
    Rect row = area.takeTop(44);
    const bool isPlaying = i == playing;
    c.rect(row).fill(isPlaying ? pink.withAlpha(0.22) : white(i % 2 == 0 ? 0.05 : 0.02));
    drawSeparator(c, row, 0, black(0.5));
    c.text(std::to_string(i + 1), row.takeLeft(44),
           {15, isPlaying ? pink : hex(0x9a9098), true, Align::Center});
    c.text(tracks[i].length, row.takeRight(60), {15, hex(0x9a9098), false, Align::Center});
    c.text(tracks[i].title, row, {17, isPlaying ? lighter(pink, 0.4) : pureWhite, true});
  }
}

}  // namespace

void drawMusicScreen(Canvas& c) {
  Rect area = c.bounds();
  drawStatusGround(c, area, tint);
  drawNavBar(c, area, {tint, "Now Playing", "Albums", "Tracks", true});
  const Canvas::Saved saved(c);
  c.rect(area).clip();
  if (c.isLandscape()) {  // cover to the left, all else beside it
    drawPanel(c, area);
    const double side = std::min(area.h - 24, area.w * 0.6);
    drawCover(c, area.takeLeft(side + 24), side);
    if (c.isPad()) {
      drawTrackList(c, area.takeTop(44 * 8));
      area.takeTop(12);
    }
    drawTitles(c, area.takeTop(70).inset(12, 8));
    drawProgress(c, area.takeTop(34).inset(6, 0));
    return drawControls(c, area);
  }
  drawPanel(c, area);
  const Rect panel = area.takeBottom(96);
  drawPanel(c, panel);
  drawControls(c, panel);
  if (c.isPad()) {
    drawTrackList(c, area.takeBottom(44 * 6));
  }
  drawTitles(c, area.takeTop(62).inset(8, 4));
  drawProgress(c, area.takeTop(26));
  drawCover(c, area, std::min(area.w, area.h) - 20);
}

}  // namespace draw_resources
