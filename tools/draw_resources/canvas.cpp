// Shapes and picture files; texts are in canvas_text.cpp.

#include "tools/draw_resources/canvas.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <stdexcept>

namespace draw_resources {
namespace {

double radians(double degrees) { return degrees * pi / 180; }

cairo_status_t appendBytes(void* bytes, const unsigned char* data, unsigned length) {
  static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

void requireSuccess(cairo_status_t status) {
  if (status != CAIRO_STATUS_SUCCESS) {
    throw std::runtime_error(cairo_status_to_string(status));
  }
}

}  // namespace

Canvas::Canvas(double width, double height, double pixelsPerPoint)
    : bounds_{0, 0, width, height},
      surface_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32,
                                          static_cast<int>(std::lround(width * pixelsPerPoint)),
                                          static_cast<int>(std::lround(height * pixelsPerPoint))),
               cairo_surface_destroy),
      cairo_(cairo_create(surface_.get()), cairo_destroy),
      pango_(pango_cairo_create_context(cairo_.get()), g_object_unref) {
  cairo_scale(cairo_.get(), pixelsPerPoint, pixelsPerPoint);
  // Unhinted glyphs keep the same places at every scale.
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  pango_cairo_context_set_font_options(pango_.get(), options);
  cairo_font_options_destroy(options);
  pango_context_set_round_glyph_positions(pango_.get(), FALSE);
}

Canvas& Canvas::moveTo(Point to) {
  cairo_move_to(cairo_.get(), to.x, to.y);
  return *this;
}

Canvas& Canvas::lineTo(Point to) {
  cairo_line_to(cairo_.get(), to.x, to.y);
  return *this;
}

Canvas& Canvas::curveTo(Point control1, Point control2, Point to) {
  cairo_curve_to(cairo_.get(), control1.x, control1.y, control2.x, control2.y, to.x, to.y);
  return *this;
}

Canvas& Canvas::close() {
  cairo_close_path(cairo_.get());
  return *this;
}

Canvas& Canvas::rect(const Rect& rect) {
  cairo_rectangle(cairo_.get(), rect.x, rect.y, rect.w, rect.h);
  return *this;
}

Canvas& Canvas::roundRect(const Rect& rect, double radius) {
  cairo_new_sub_path(cairo_.get());
  const Rect corners = rect.inset(radius, radius);
  return arc({corners.x, corners.y}, radius, 180, 270)
      .arc({corners.right(), corners.y}, radius, 270, 360)
      .arc({corners.right(), corners.bottom()}, radius, 0, 90)
      .arc({corners.x, corners.bottom()}, radius, 90, 180)
      .close();
}

Canvas& Canvas::circle(Point center, double radius) {
  cairo_new_sub_path(cairo_.get());
  return arc(center, radius, 0, 360).close();
}

Canvas& Canvas::ellipse(const Rect& rect) {
  const Saved saved(*this);
  cairo_translate(cairo_.get(), rect.midX(), rect.midY());
  cairo_scale(cairo_.get(), rect.w / 2, rect.h / 2);
  return circle({0, 0}, 1);
}

Canvas& Canvas::arc(Point center, double radius, double fromDegrees, double toDegrees) {
  cairo_arc(cairo_.get(), center.x, center.y, radius, radians(fromDegrees), radians(toDegrees));
  return *this;
}

Canvas& Canvas::path(const char* drawing) {
  const char* rest = drawing;
  while (const char command = *rest++) {
    std::array<double, 6> n{};
    for (double& number : n) {
      char* end = nullptr;
      number = std::strtod(rest, &end);
      rest = end;  // unmoved when there is no further number
    }
    // clang-format off
    switch (command) {
      case ' ': break;
      case 'M': moveTo({n[0], n[1]}); break;
      case 'L': lineTo({n[0], n[1]}); break;
      case 'C': curveTo({n[0], n[1]}, {n[2], n[3]}, {n[4], n[5]}); break;
      case 'O': circle({n[0], n[1]}, n[2]); break;
      case 'A': arc({n[0], n[1]}, n[2], n[3], n[4]); break;
      case 'E': ellipse({n[0], n[1], n[2], n[3]}); break;
      case 'R': rect({n[0], n[1], n[2], n[3]}); break;
      case 'Z': close(); break;
      default: throw std::logic_error(std::string("not a drawing: ") + drawing);
    }
    // clang-format on
  }
  return *this;
}

Canvas& Canvas::fillKeep(const Paint& paint) {
  cairo_set_source(cairo_.get(), paint.pattern());
  cairo_fill_preserve(cairo_.get());
  return *this;
}

Canvas& Canvas::strokeKeep(const Paint& paint, double width) {
  cairo_set_source(cairo_.get(), paint.pattern());
  cairo_set_line_width(cairo_.get(), width);
  cairo_set_line_cap(cairo_.get(), CAIRO_LINE_CAP_ROUND);
  cairo_set_line_join(cairo_.get(), CAIRO_LINE_JOIN_ROUND);
  cairo_stroke_preserve(cairo_.get());
  return *this;
}

void Canvas::fill(const Paint& paint) {
  fillKeep(paint);
  cairo_new_path(cairo_.get());
}

void Canvas::stroke(const Paint& paint, double width) {
  strokeKeep(paint, width);
  cairo_new_path(cairo_.get());
}

void Canvas::clip() { cairo_clip(cairo_.get()); }

void Canvas::translate(Point by) { cairo_translate(cairo_.get(), by.x, by.y); }

void Canvas::place(Point origin, double scale) {
  translate(origin);
  cairo_scale(cairo_.get(), scale, scale);
}

void Canvas::rotateAbout(Point center, double degrees) {
  translate(center);
  cairo_rotate(cairo_.get(), radians(degrees));
  translate({-center.x, -center.y});
}

void Canvas::shadeRect(const Rect& area, Color top, Color bottom) {
  rect(area).fill(Paint::vertical(area, top, bottom));
}

void Canvas::shadeDisc(Point center, double radius, Color top, Color bottom) {
  circle(center, radius).fill(Paint::vertical(centeredRect(center, 2 * radius, 2 * radius), top, bottom));
}

void Canvas::panel(const Rect& area, double radius, Color top, Color bottom, Color edge) {
  roundRect(area, radius).fillKeep(Paint::vertical(area, top, bottom)).stroke(edge, 1);
}

void Canvas::softShadow(const Rect& rect, double radius, double spread, double alpha) {
  constexpr int layers = 8;  // overlaid, they come close to a blur
  for (int layer = layers; layer > 0; --layer) {
    const double grow = spread * layer / layers;
    roundRect(rect.inset(-grow, -grow), radius + grow).fill(black(alpha / layers));
  }
}

std::string Canvas::png() {
  requireSuccess(cairo_status(cairo_.get()));
  std::string bytes;
  requireSuccess(cairo_surface_write_to_png_stream(surface_.get(), appendBytes, &bytes));
  return bytes;
}

}  // namespace draw_resources
