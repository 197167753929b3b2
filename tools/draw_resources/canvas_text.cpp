// Texts, laid out by Pango.

#include <cmath>
#include <stdexcept>

#include "tools/draw_resources/canvas.h"

namespace draw_resources {
namespace {

constexpr const char* fontFamily = "Liberation Sans";

using Font = std::unique_ptr<PangoFontDescription, decltype(&pango_font_description_free)>;

Font fontFor(const TextStyle& style) {
  Font font(pango_font_description_new(), pango_font_description_free);
  pango_font_description_set_family_static(font.get(), fontFamily);
  pango_font_description_set_absolute_size(font.get(), style.size * PANGO_SCALE);
  pango_font_description_set_weight(font.get(), style.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  return font;
}

PangoAlignment pangoAlignment(Align align) {
  switch (align) {
    case Align::Left:
      return PANGO_ALIGN_LEFT;
    case Align::Center:
      return PANGO_ALIGN_CENTER;
    case Align::Right:
      return PANGO_ALIGN_RIGHT;
  }
  return PANGO_ALIGN_LEFT;
}

int pangoUnits(double points) { return static_cast<int>(std::lround(points * PANGO_SCALE)); }

double points(int pangoUnits) { return static_cast<double>(pangoUnits) / PANGO_SCALE; }

PangoRectangle logicalExtents(PangoLayout* layout) {
  PangoRectangle extents;
  pango_layout_get_extents(layout, nullptr, &extents);
  return extents;
}

}  // namespace

Canvas::Layout Canvas::layout(std::string_view text, const TextStyle& style) {
  Layout layout(pango_layout_new(pango_.get()), g_object_unref);
  pango_layout_set_font_description(layout.get(), fontFor(style).get());
  pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
  pango_layout_set_alignment(layout.get(), pangoAlignment(style.align));
  return layout;
}

Canvas::Layout Canvas::wrappedLayout(std::string_view text, double width, const TextStyle& style) {
  Layout lines = layout(text, style);
  pango_layout_set_width(lines.get(), pangoUnits(width));
  pango_layout_set_wrap(lines.get(), PANGO_WRAP_WORD_CHAR);
  return lines;
}

void Canvas::text(std::string_view text, const Rect& box, const TextStyle& style) {
  const Layout line = layout(text, style);
  pango_layout_set_width(line.get(), pangoUnits(box.w));
  pango_layout_set_ellipsize(line.get(), PANGO_ELLIPSIZE_END);
  const double top = box.midY() - points(logicalExtents(line.get()).height) / 2;
  const auto show = [&](double y, Color color) {
    cairo_set_source(cairo_.get(), Paint(color).pattern());
    moveTo({box.x, y});
    pango_cairo_show_layout(cairo_.get(), line.get());
    cairo_new_path(cairo_.get());
  };
  if (style.shadow.a > 0) {
    show(top + style.shadowOffset, style.shadow);
  }
  show(top, style.color);
}

double Canvas::paragraph(std::string_view text, const Rect& box, const TextStyle& style, double lineHeight) {
  const Layout lines = wrappedLayout(text, box.w, style);
  const int count = pango_layout_get_line_count(lines.get());
  // The font's own line height centred in ours.
  const double leading = (lineHeight - points(logicalExtents(lines.get()).height) / count) / 2;
  const double firstBaseline = box.y + leading + points(pango_layout_get_baseline(lines.get()));
  cairo_set_source(cairo_.get(), Paint(style.color).pattern());
  for (int i = 0; i < count; ++i) {
    moveTo({box.x, firstBaseline + lineHeight * i});
    pango_cairo_show_layout_line(cairo_.get(), pango_layout_get_line_readonly(lines.get(), i));
  }
  cairo_new_path(cairo_.get());
  return lineHeight * count;
}

Rect Canvas::paragraphBounds(std::string_view text, double width, const TextStyle& style, double lineHeight) {
  const Layout lines = wrappedLayout(text, width, style);
  return {0, 0, std::ceil(points(logicalExtents(lines.get()).width)),
          lineHeight * pango_layout_get_line_count(lines.get())};
}

double Canvas::textWidth(std::string_view text, const TextStyle& style) {
  return points(logicalExtents(layout(text, style).get()).width);
}

void requireFont() {
  PangoFontMap* map = pango_cairo_font_map_get_default();  // owned by Pango
  const std::unique_ptr<PangoContext, decltype(&g_object_unref)> context(pango_font_map_create_context(map),
                                                                         g_object_unref);
  const std::unique_ptr<PangoFont, decltype(&g_object_unref)> font(
      pango_font_map_load_font(map, context.get(), fontFor({12, pureBlack}).get()), g_object_unref);
  const Font found(font ? pango_font_describe(font.get()) : nullptr, pango_font_description_free);
  if (!found || std::string_view(pango_font_description_get_family(found.get())) != fontFamily) {
    throw std::runtime_error(std::string("font \"") + fontFamily + "\" is not installed");
  }
}

}  // namespace draw_resources
