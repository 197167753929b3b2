#pragma once

#include "tools/draw_resources/canvas.h"

namespace draw_resources {

/// Small one-coloured symbols for bars, tabs and rows.
// clang-format off
enum class Glyph {
  Arrow, Bell, Box, Camera, Clock, Erase, Film, Flag, Globe, Grid, Hourglass, Keypad, Lens, Lines, Lock, Next, Note, Pause,
  Pencil, Person, Plane, Previous, Receiver, Reload, Sliders, Speaker, Stack, Star, Sun, Tape, Trash, Wave,
};
// clang-format on

/// Fits the symbol into a square box.
void drawGlyph(Canvas& canvas, Glyph glyph, const Rect& box, Color color);

}  // namespace draw_resources
