#include "platform/uikit/ui_drawing.h"

#include "platform/coregraphics/cairo_support.h"

namespace {

// Widths of glyphs, in parts of the font size, for a bold sans serif of usual proportions.
constexpr CGFloat narrowGlyph = 0.34f;
constexpr CGFloat mediumGlyph = 0.62f;
constexpr CGFloat capitalGlyph = 0.78f;
constexpr CGFloat wideGlyph = 1;

bool continuesCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

/// Of a character's first byte; the bytes that follow it add nothing.
CGFloat glyphWidth(char first) {
  constexpr std::string_view narrow = " .,:;'!|iIjlft()[]", wide = "mwMW@%";
  if (continuesCharacter(first)) return 0;
  if (narrow.find(first) != std::string_view::npos) return narrowGlyph;
  if (wide.find(first) != std::string_view::npos || static_cast<unsigned char>(first) >= 0x80)
    return wideGlyph;
  return first >= 'A' && first <= 'Z' ? capitalGlyph : mediumGlyph;
}

/// How much of `text`, which is not empty, goes on a line: to the last space that fits, or to the last
/// character.
std::size_t lineLength(std::string_view text, CGFloat fontSize, CGFloat width) {
  CGFloat used = 0;
  std::size_t lastSpace = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n') return i;
    if (text[i] == ' ') lastSpace = i;
    used += glyphWidth(text[i]) * fontSize;
    if (used <= width || text[i] == ' ' || i == 0 || continuesCharacter(text[i])) continue;
    return lastSpace > 0 ? lastSpace : i;
  }
  return text.size();
}

}  // namespace

void strokeRoundedRectangle(CGContext& context, CGRect rect, CGFloat radius, CGFloat width, CGColor color) {
  cairo_t* cairo = context.handle();
  cairo_new_path(cairo);
  addRoundedRectangle(cairo, CGRectInset(rect, width / 2, width / 2), radius - width / 2);
  setSource(cairo, color);
  cairo_set_line_width(cairo, width);
  cairo_stroke(cairo);
}

void fillPolygon(CGContext& context, const std::vector<CGPoint>& corners, CGColor color) {
  cairo_t* cairo = context.handle();
  cairo_new_path(cairo);
  for (const CGPoint& corner : corners) cairo_line_to(cairo, corner.x, corner.y);
  cairo_close_path(cairo);
  setSource(cairo, color);
  cairo_fill(cairo);
}

std::vector<std::string> wrapText(std::string_view text, CGFloat fontSize, CGFloat width) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t length = lineLength(text, fontSize, width);
    lines.emplace_back(text.substr(0, length));
    text.remove_prefix(length);
    if (!text.empty() && (text.front() == ' ' || text.front() == '\n')) text.remove_prefix(1);
  }
  return lines;
}
