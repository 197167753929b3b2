// Text of CGContext, set with Pango.

#include <pango/pangocairo.h>

#include <algorithm>
#include <memory>

#include "platform/coregraphics/cairo_support.h"
#include "platform/coregraphics/cg_context.h"

namespace {

constexpr const char* fontFamily = "Liberation Sans";
/// More than any line is long; keeps Pango's units within an int.
constexpr CGFloat maxLineWidth = 100'000;
/// Bytes; no line has room for more.
constexpr std::size_t longestText = 1000;

struct GObjectDeleter {
  void operator()(gpointer object) const { g_object_unref(object); }
};
struct FontDescriptionDeleter {
  void operator()(PangoFontDescription* font) const { pango_font_description_free(font); }
};
struct FontOptionsDeleter {
  void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
};
struct GlibDeleter {
  void operator()(gpointer memory) const { g_free(memory); }
};
using LayoutPtr = std::unique_ptr<PangoLayout, GObjectDeleter>;
using FontPtr = std::unique_ptr<PangoFontDescription, FontDescriptionDeleter>;
using FontOptionsPtr = std::unique_ptr<cairo_font_options_t, FontOptionsDeleter>;

PangoAlignment pangoAlignment(CGTextAlignment alignment) {
  switch (alignment) {
    case CGTextAlignment::Center:
      return PANGO_ALIGN_CENTER;
    case CGTextAlignment::Right:
      return PANGO_ALIGN_RIGHT;
    case CGTextAlignment::Left:
      break;
  }
  return PANGO_ALIGN_LEFT;
}

/// Unhinted glyphs keep the same places at every scale and on every machine.
void useUnhintedGlyphs(PangoLayout* layout) {
  const FontOptionsPtr options(cairo_font_options_create());
  cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
  cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
  PangoContext* context = pango_layout_get_context(layout);  // The layout's own.
  pango_cairo_context_set_font_options(context, options.get());
  pango_context_set_round_glyph_positions(context, FALSE);
  pango_layout_context_changed(layout);
}

LayoutPtr layOut(cairo_t* cairo, std::string_view text, CGFloat width, const CGTextStyle& style) {
  LayoutPtr layout(pango_cairo_create_layout(cairo));
  useUnhintedGlyphs(layout.get());

  const FontPtr font(pango_font_description_new());
  pango_font_description_set_family_static(font.get(), fontFamily);
  pango_font_description_set_weight(font.get(), style.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  pango_font_description_set_absolute_size(font.get(), double(style.fontSize) * PANGO_SCALE);
  pango_layout_set_font_description(layout.get(), font.get());

  text = text.substr(0, longestText);
  // Names come from files, and may be no valid UTF-8.
  const std::unique_ptr<gchar, GlibDeleter> valid(g_utf8_make_valid(text.data(), gssize(text.size())));
  pango_layout_set_text(layout.get(), valid.get(), -1);
  pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
  pango_layout_set_width(layout.get(), pango_units_from_double(std::min(width, maxLineWidth)));
  pango_layout_set_ellipsize(layout.get(), PANGO_ELLIPSIZE_END);
  pango_layout_set_alignment(layout.get(), pangoAlignment(style.alignment));
  // Left stays left whatever the script.
  pango_layout_set_auto_dir(layout.get(), FALSE);
  return layout;
}

}  // namespace

void CGContext::drawText(std::string_view text, CGRect rect, const CGTextStyle& style) {
  if (text.empty() || !(rect.size.width > 0) || !(style.fontSize > 0)) return;
  const LayoutPtr layout = layOut(cairo_, text, rect.size.width, style);
  int height = 0;
  pango_layout_get_size(layout.get(), nullptr, &height);
  setSource(cairo_, style.color);
  cairo_move_to(cairo_, rect.origin.x, CGRectGetMidY(rect) - pango_units_to_double(height) / 2);
  pango_cairo_show_layout(cairo_, layout.get());
  cairo_new_path(cairo_);
}
