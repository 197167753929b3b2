#include "tools/draw_resources/glyphs.h"

#include <algorithm>
#include <array>

namespace draw_resources {
namespace {

constexpr double gridSize = 24;  // symbols are drawn on a square of this size
constexpr double filled = 0;

struct Stroke {
  double pen;        // its width, or filled
  const char* path;  // as Canvas::path takes it; null when there is no such stroke
};

struct Drawing {
  Glyph glyph;
  std::array<Stroke, 3> strokes;
};

constexpr Drawing drawings[] = {
    {Glyph::Arrow, {{{filled, "M22 2 L13 22 L11 13 L2 11 Z"}}}},
    {Glyph::Bell, {{{filled, "M3 18 C7 15 5 4 12 4 C19 4 17 15 21 18 Z O12 3.4 1.6 O12 20.2 2.1"}}}},
    {Glyph::Box,
     {{{2, "M8 10 L4 10 L4 22 L20 22 L20 10 L16 10"}, {2, "M12 16 L12 2.5 M8 6.5 L12 2.5 L16 6.5"}}}},
    {Glyph::Camera, {{{3, "M3 8 L8 8 L9 5 L15 5 L16 8 L21 8 L21 19 L3 19 Z"}, {2.6, "O12 13 4.2"}}}},
    {Glyph::Clock, {{{2, "O12 12 9.5 M12 6.5 L12 12 L16 14"}}}},
    {Glyph::Erase, {{{2, "M1 12 L8 4 L23 4 L23 20 L8 20 Z M11 8.5 L18 15.5 M18 8.5 L11 15.5"}}}},
    {Glyph::Film, {{{filled, "R1 6 14 12 M16 12 L23 6 L23 18 Z"}}}},
    {Glyph::Flag, {{{2, "M6 2 L6 22"}, {filled, "M7 3 L21 7 L7 12.5 Z"}}}},
    {Glyph::Globe,
     {{{2, "O12 12 9.5"}, {1.4, "E7.5 2.5 9 19 M2.5 12 L21.5 12 M4.2 7 L19.8 7 M4.2 17 L19.8 17"}}}},
    {Glyph::Grid, {{{filled, "R3 3 8 8 R13 3 8 8 R3 13 8 8 R13 13 8 8"}}}},
    {Glyph::Hourglass,
     {{{2, "M6 4 L18 4 L12.8 12 L18 20 L6 20 L11.2 12 Z M4.5 3 L19.5 3 M4.5 21 L19.5 21"},
       {filled, "M8.5 19 L15.5 19 L12 14.5 Z"}}}},
    {Glyph::Keypad,
     {{{filled,
        "R3 3 5 5 R9.5 3 5 5 R16 3 5 5 R3 9.5 5 5 R9.5 9.5 5 5 R16 9.5 5 5 R3 16 5 5 R9.5 16 5 5 R16 16 5 "
        "5"}}}},
    {Glyph::Lens, {{{3, "O10 10 7 M15.5 15.5 L22 22"}}}},
    {Glyph::Lines, {{{2, "M8 5 L22 5 M8 12 L22 12 M8 19 L22 19"}, {filled, "O3 5 1.6 O3 12 1.6 O3 19 1.6"}}}},
    {Glyph::Lock, {{{2.4, "M7.5 11 L7.5 8 A12 8 4.5 180 360 L16.5 11"}, {filled, "R4.5 10.5 15 11.5"}}}},
    {Glyph::Next, {{{filled, "M2 5 L11 12 L2 19 Z M11 5 L20 12 L11 19 Z R20 5 2.4 14"}}}},
    {Glyph::Note,
     {{{filled, "E3 16 8 6 E13 14 8 6"},
       {filled, "M9.5 5 L21 2.5 L21 7 L9.5 9.5 Z"},
       {2, "M10 19 L10 6 M20 17 L20 4"}}}},
    {Glyph::Pause, {{{filled, "R4 2 6 20 R14 2 6 20"}}}},
    {Glyph::Pencil, {{{2, "M12 4 L4 4 L4 20 L20 20 L20 12"}, {3.4, "M10 14 L20.5 3.5"}}}},
    {Glyph::Person, {{{filled, "O12 8 4.6 M3 22 C3 15 7 13.6 12 13.6 C17 13.6 21 15 21 22 Z"}}}},
    {Glyph::Plane, {{{filled, "M1 11 L23 1 L17 22 L11.5 15 L18 6 L8.5 13.5 Z"}}}},
    {Glyph::Previous, {{{filled, "M22 5 L13 12 L22 19 Z M13 5 L4 12 L13 19 Z R1.6 5 2.4 14"}}}},
    {Glyph::Receiver, {{{4, "M4 13 C6 5 18 5 20 13"}, {filled, "R1 12 6 6 R17 12 6 6"}}}},
    {Glyph::Reload, {{{2.4, "A12 12 8.5 -30 250"}, {filled, "M8 0.5 L15.5 3.8 L8.8 8.6 Z"}}}},
    {Glyph::Sliders, {{{2, "M3 6 L21 6 M3 12 L21 12 M3 18 L21 18"}, {filled, "O8 6 3 O16 12 3 O10 18 3"}}}},
    {Glyph::Speaker,
     {{{filled, "M1 8.5 L6 8.5 L12 3 L12 21 L6 15.5 L1 15.5 Z"},
       {2, "A11.5 12 5 -45 45"},
       {2, "A11.5 12 9.5 -45 45"}}}},
    {Glyph::Stack, {{{filled, "R7 2 10 1.8 R5 5 14 2 R2 9 20 13"}}}},
    {Glyph::Star,
     {{{filled,
        "M12 1.8 L14.7 9.1 L22.5 9.4 L16.4 14.2 L18.5 21.7 L12 17.4 L5.5 21.7 L7.6 14.2 L1.5 9.4 L9.3 9.1 "
        "Z"}}}},
    {Glyph::Sun,
     {{{filled, "O12 12 5"},
       {2, "M12 1.5 L12 4.5 M19.4 4.6 L17.3 6.7 M22.5 12 L19.5 12 M19.4 19.4 L17.3 17.3"},
       {2, "M12 22.5 L12 19.5 M4.6 19.4 L6.7 17.3 M1.5 12 L4.5 12 M4.6 4.6 L6.7 6.7"}}}},
    {Glyph::Tape, {{{2, "O6 12 4.4 O18 12 4.4 M6 16.4 L18 16.4"}}}},
    {Glyph::Trash, {{{filled, "R9.5 1.5 5 2 R4 4 16 2.4 M5.2 8 L18.8 8 L17.4 22.5 L6.6 22.5 Z"}}}},
    {Glyph::Wave, {{{filled, "O12 19 2.2"}, {2.6, "A12 19 7 225 315"}, {2.6, "A12 19 12.5 225 315"}}}},
};

}  // namespace

void drawGlyph(Canvas& canvas, Glyph glyph, const Rect& box, Color color) {
  const Canvas::Saved saved(canvas);
  canvas.place({box.x, box.y}, box.w / gridSize);
  for (const auto& [pen, path] : std::ranges::find(drawings, glyph, &Drawing::glyph)->strokes) {
    if (path != nullptr) {
      canvas.path(path);
      pen == filled ? canvas.fill(color) : canvas.stroke(color, pen);
    }
  }
}

}  // namespace draw_resources
