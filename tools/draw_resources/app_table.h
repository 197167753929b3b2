#pragma once

#include <span>
#include <string_view>

#include "tools/draw_resources/canvas.h"

namespace draw_resources {

enum class Orientations { PortraitOnly, All };

using Painter = void (*)(Canvas&);

struct App {
  std::string_view name;        // "Calendar"; also its executable and bundle folder
  std::string_view identifier;  // "com.example.calendar"
  Orientations orientations;
  Painter drawIcon;    // on a square of iconPoints; the rounded mask is put on by drawAppIcon
  Painter drawScreen;  // on any screen size, the status bar's ground included
};

inline constexpr double iconPoints = 57;

std::span<const App> apps();

/// The app's icon with the mask, the edge and the sheen that all icons share.
void drawAppIcon(Canvas& canvas, const App& app);

}  // namespace draw_resources
