#pragma once

#include <cairo.h>

#include <memory>
#include <utility>
#include <vector>

#include "platform/quartzcore/pixel_box.h"

/// A set of device pixels, as boxes that do not overlap. Internal to the renderer.
class PixelRegion {
 public:
  PixelRegion() : region_(cairo_region_create()) {}
  explicit PixelRegion(const PixelBox& box);
  PixelRegion(const PixelRegion& other) : region_(cairo_region_copy(other.region_.get())) {}
  PixelRegion(PixelRegion&&) = default;
  PixelRegion& operator=(PixelRegion other) {
    region_ = std::move(other.region_);
    return *this;
  }

  bool empty() const { return cairo_region_is_empty(region_.get()); }
  PixelBox extents() const;
  int boxCount() const { return cairo_region_num_rectangles(region_.get()); }
  std::vector<PixelBox> boxes() const;
  bool intersects(const PixelBox& box) const;
  bool contains(const PixelBox& box) const;
  PixelRegion intersected(const PixelBox& box) const;

  void unite(const PixelBox& box);
  void subtract(const PixelBox& box);

 private:
  struct Deleter {
    void operator()(cairo_region_t* region) const { cairo_region_destroy(region); }
  };
  std::unique_ptr<cairo_region_t, Deleter> region_;
};
