#pragma once

#include <pango/pangocairo.h>

#include <memory>
#include <string>
#include <string_view>

#include "tools/draw_resources/paint.h"

namespace draw_resources {

enum class Align { Left, Center, Right };

struct TextStyle {
  double size;  // points
  Color color;
  bool bold = false;
  Align align = Align::Left;
  Color shadow = transparent;
  double shadowOffset = 1;  // points below the text, negative above
};

/// A picture in the making. Shapes are given in points; a path is built, then filled, stroked or clipped to.
class Canvas {
 public:
  Canvas(double width, double height, double pixelsPerPoint);

  const Rect& bounds() const { return bounds_; }
  /// Whether the picture is for the tablet's screen, whose layouts have room for two columns.
  bool isPad() const { return bounds_.w >= padSide && bounds_.h >= padSide; }
  bool isLandscape() const { return bounds_.w > bounds_.h; }

  Canvas& moveTo(Point to);
  Canvas& lineTo(Point to);
  Canvas& curveTo(Point control1, Point control2, Point to);
  Canvas& close();
  Canvas& rect(const Rect& rect);
  Canvas& roundRect(const Rect& rect, double radius);
  Canvas& circle(Point center, double radius);
  Canvas& ellipse(const Rect& rect);
  /// Degrees, clockwise from three o'clock.
  Canvas& arc(Point center, double radius, double fromDegrees, double toDegrees);
  /// A drawing as text: M x y (move), L x y (line), C x y x y x y (curve), Z (close), O x y r (circle),
  /// E x y w h (ellipse), R x y w h (rectangle), A x y r from to (arc). Throws std::logic_error at anything
  /// else.
  Canvas& path(const char* drawing);
  Canvas& line(Point from, Point to) { return moveTo(from).lineTo(to); }

  /// fill, stroke and clip consume the path; the keeping ones leave it for more.
  Canvas& fillKeep(const Paint& paint);
  Canvas& strokeKeep(const Paint& paint, double width);
  void fill(const Paint& paint);
  void stroke(const Paint& paint, double width);
  void clip();

  void translate(Point by);
  /// Sets the origin, and makes a unit `scale` points long.
  void place(Point origin, double scale);
  void rotateAbout(Point center, double degrees);

  /// Rectangles and discs shaded from top to bottom: most of what a screen is made of.
  void shadeRect(const Rect& rect, Color top, Color bottom);
  void shadeDisc(Point center, double radius, Color top, Color bottom);
  /// A raised or sunken thing: shaded, with an edge one point wide.
  void panel(const Rect& rect, double radius, Color top, Color bottom, Color edge);
  /// A blurred dark edge around a rounded rectangle, to be drawn before it.
  void softShadow(const Rect& rect, double radius, double spread, double alpha);

  /// One line, centred vertically in the box, shortened with an ellipsis to its width.
  void text(std::string_view text, const Rect& box, const TextStyle& style);
  /// Wrapped lines from the top of the box, exactly `lineHeight` apart; returns the height they take.
  double paragraph(std::string_view text, const Rect& box, const TextStyle& style, double lineHeight);
  double textWidth(std::string_view text, const TextStyle& style);
  /// The widest line and the height of a paragraph no wider than `width`, at the origin.
  Rect paragraphBounds(std::string_view text, double width, const TextStyle& style, double lineHeight);

  /// The picture as a PNG file's bytes.
  std::string png();

  /// Undoes clips and transforms at the end of a block.
  class Saved {
   public:
    explicit Saved(Canvas& canvas) : canvas_(canvas) { cairo_save(canvas_.cairo_.get()); }
    ~Saved() { cairo_restore(canvas_.cairo_.get()); }
    Saved(const Saved&) = delete;
    Saved& operator=(const Saved&) = delete;

   private:
    Canvas& canvas_;
  };

 private:
  static constexpr double padSide = 700;

  using Layout = std::unique_ptr<PangoLayout, decltype(&g_object_unref)>;
  Layout layout(std::string_view text, const TextStyle& style);
  Layout wrappedLayout(std::string_view text, double width, const TextStyle& style);

  Rect bounds_;
  std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface_;
  std::unique_ptr<cairo_t, decltype(&cairo_destroy)> cairo_;
  std::unique_ptr<PangoContext, decltype(&g_object_unref)> pango_;
};

/// Throws std::runtime_error when the font of all texts is not installed.
void requireFont();

}  // namespace draw_resources
