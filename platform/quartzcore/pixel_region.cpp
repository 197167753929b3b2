#include "platform/quartzcore/pixel_region.h"

namespace {

cairo_rectangle_int_t rectangleOf(const PixelBox& box) {
  if (box.empty()) return {};
  return {box.left, box.top, box.width(), box.height()};
}

PixelBox boxOf(const cairo_rectangle_int_t& rectangle) {
  return {rectangle.x, rectangle.y, rectangle.x + rectangle.width, rectangle.y + rectangle.height};
}

}  // namespace

PixelRegion::PixelRegion(const PixelBox& box) {
  const auto rectangle = rectangleOf(box);
  region_.reset(cairo_region_create_rectangle(&rectangle));
}

PixelBox PixelRegion::extents() const {
  cairo_rectangle_int_t rectangle;
  cairo_region_get_extents(region_.get(), &rectangle);
  return boxOf(rectangle);
}

std::vector<PixelBox> PixelRegion::boxes() const {
  std::vector<PixelBox> boxes(static_cast<std::size_t>(boxCount()));
  for (int i = 0; i < boxCount(); ++i) {
    cairo_rectangle_int_t rectangle;
    cairo_region_get_rectangle(region_.get(), i, &rectangle);
    boxes[static_cast<std::size_t>(i)] = boxOf(rectangle);
  }
  return boxes;
}

bool PixelRegion::intersects(const PixelBox& box) const {
  const auto rectangle = rectangleOf(box);
  return !box.empty() &&
         cairo_region_contains_rectangle(region_.get(), &rectangle) != CAIRO_REGION_OVERLAP_OUT;
}

bool PixelRegion::contains(const PixelBox& box) const {
  const auto rectangle = rectangleOf(box);
  return box.empty() || cairo_region_contains_rectangle(region_.get(), &rectangle) == CAIRO_REGION_OVERLAP_IN;
}

PixelRegion PixelRegion::intersected(const PixelBox& box) const {
  PixelRegion result(box);
  cairo_region_intersect(result.region_.get(), region_.get());
  return result;
}

void PixelRegion::unite(const PixelBox& box) {
  const auto rectangle = rectangleOf(box);
  cairo_region_union_rectangle(region_.get(), &rectangle);
}

void PixelRegion::subtract(const PixelBox& box) {
  const auto rectangle = rectangleOf(box);
  cairo_region_subtract_rectangle(region_.get(), &rectangle);
}
