#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "tools/draw_resources/canvas.h"
#include "tools/draw_resources/glyphs.h"

namespace draw_resources {

inline constexpr double statusBarHeight = 20;
inline constexpr double tabBarHeight = 49;
inline constexpr double sideColumnWidth = 320;  // the left column on the tablet
inline constexpr Color accent = hex(0x2f6f9f);  // selected texts, links

/// The height of navigation and tool bars: lower on a phone held sideways.
double barHeight(const Canvas& canvas);

struct NavBar {
  Color tint;
  std::string_view title;
  std::string_view left = {};   // no button when empty
  std::string_view right = {};  // no button when empty
  bool leftGoesBack = false;    // an arrow-shaped left button
};

/// The coloured ground that the system draws its status bar on; taken off the top of `area`.
void drawStatusGround(Canvas& canvas, Rect& area, Color tint);
/// A navigation bar, taken off the top of `area`.
void drawNavBar(Canvas& canvas, Rect& area, const NavBar& bar);
/// An empty tool bar taken off the bottom of `area`; returns where to put its items.
Rect drawToolBar(Canvas& canvas, Rect& area, Color tint);
/// Glyphs spread evenly over a tool bar.
void drawToolItems(Canvas& canvas, const Rect& bar, const std::vector<Glyph>& glyphs);

struct TabItem {
  Glyph glyph;
  std::string_view label;
};
/// A tab bar taken off the bottom of `area`.
void drawTabBar(Canvas& canvas, Rect& area, const std::vector<TabItem>& items, size_t selected,
                Color highlight);

void drawBarButton(Canvas& canvas, const Rect& box, Color tint, std::string_view label,
                   bool pointsBack = false);
/// A segmented control.
void drawSegments(Canvas& canvas, const Rect& box, const std::vector<std::string_view>& labels,
                  size_t selected, Color tint);
void drawSearchField(Canvas& canvas, const Rect& box, std::string_view text, Color textColor);
void drawSeparator(Canvas& canvas, const Rect& row, double leftInset, Color color = hex(0xd4d6da));
/// The arrow at the right end of a row that leads on.
void drawChevron(Canvas& canvas, const Rect& row, Color color = hex(0x9aa2ad));
void drawKnob(Canvas& canvas, Point center, double radius);
void drawSwitch(Canvas& canvas, const Rect& row, bool on);

/// A grey ground with faint vertical lines, behind grouped tables.
void drawPinstripes(Canvas& canvas, const Rect& area);

enum class Accessory { Chevron, SwitchOn, SwitchOff, None };
struct GroupRow {
  std::string_view label;
  std::string_view value = {};
  Accessory accessory = Accessory::Chevron;
  Color badge = transparent;  // a coloured square with the glyph, unless clear
  Glyph glyph = Glyph::Clock;
  bool selected = false;
};
/// A rounded group of rows, taken off the top of `area` with its header and the gap below it.
void drawGroup(Canvas& canvas, Rect& area, std::string_view header, const std::vector<GroupRow>& rows);

struct ListRow {
  std::string_view title;
  std::string_view time;
  std::string_view subtitle;
  std::string_view preview = {};  // two more lines
  bool isMarked = false;          // with a dot
};
/// Rows of things to open; the first one is, where there is room beside the list to show it.
void drawList(Canvas& canvas, Rect area, std::span<const ListRow> rows, Color tint, Color paper = pureWhite);

/// The dark line between two columns.
void drawColumnEdge(Canvas& canvas, const Rect& side);

}  // namespace draw_resources
