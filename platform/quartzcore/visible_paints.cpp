#include "platform/quartzcore/visible_paints.h"

#include <algorithm>
#include <iterator>

#include "platform/coregraphics/cairo_support.h"
#include "platform/quartzcore/plain_subtree.h"

namespace {

/// What is covered may be painted nonetheless; a region in tatters costs more than that.
constexpr int mostBoxes = 32;

/// A paint and the part of it that shows.
struct VisiblePaint {
  const Paint* paint;
  std::vector<PixelBox> boxes;
};

std::vector<VisiblePaint> visibleFrontToBack(const std::vector<const Paint*>& backToFront,
                                             const PixelRegion& region) {
  PixelRegion open = region;
  PixelBox extents = open.extents();
  std::vector<VisiblePaint> visible;
  for (auto next = backToFront.rbegin(); next != backToFront.rend(); ++next) {
    const Paint* paint = *next;
    if (!paint->box.intersects(extents) || !open.intersects(paint->box)) continue;
    visible.push_back({paint, open.intersected(paint->box).boxes()});
    if (paint->covered.empty() || open.boxCount() >= mostBoxes) continue;
    open.subtract(paint->covered);
    if (open.empty()) break;
    extents = open.extents();
  }
  return visible;
}

/// Calls `paintRow` with (x, y, count) for each row of the box.
template <class PaintRow>
void forEachRow(const PixelBox& box, PaintRow paintRow) {
  for (int y = box.top; y < box.bottom; ++y) paintRow(box.left, y, box.width());
}

class BoxPainter {
 public:
  BoxPainter(const PixelSurface& surface, const FrameMoment& moment) : surface_(surface), moment_(moment) {}

  void paint(const ColorPaint& paint, const PixelBox& box) {
    const auto paintRow = paint.color >= opaqueBlackPixel ? fillRow : tintRow;
    forEachRow(box, [&](int x, int y, int count) { paintRow(surface_.at(x, y), count, paint.color); });
  }

  void paint(const PicturePaint& paint, const PixelBox& box) {
    forEachRow(box, [&](int x, int y, int count) {
      layRow(surface_.at(x, y), pixelsOf(paint, x, y), count, paint.opacity, paint.opaque);
    });
  }

  void paint(const TilePaint& paint, const PixelBox& box) {
    const int width = paint.picture->width(), height = paint.picture->height();
    const auto within = [](int offset, int length) { return (offset % length + length) % length; };
    forEachRow(box, [&](int left, int y, int) {
      const auto* row = reinterpret_cast<const Pixel*>(paint.picture->row(within(y - paint.top, height)));
      for (int x = left, count = 0; x < box.right; x += count) {
        const int column = within(x - paint.left, width);
        count = std::min(width - column, box.right - x);
        layRow(surface_.at(x, y), row + column, count, paint.opacity, paint.opaque);
      }
    });
  }

  void paintTinted(const PicturePaint& paint, const ColorPaint& tint, const PixelBox& box) {
    forEachRow(box, [&](int x, int y, int count) {
      copyTintedRow(surface_.at(x, y), pixelsOf(paint, x, y), count, tint.color);
    });
  }

  void paint(const ShadowPaint& paint, const PixelBox& box) {
    const ShadowMask& mask = *paint.mask;
    const int maskLeft = paint.left + mask.box.left, maskTop = paint.top + mask.box.top;
    const auto shadow = [&](int y, std::uint16_t across, int begin, int end) {
      const int left = std::max(begin, box.left), right = std::min(end, box.right);
      if (left < right)
        shadowRow(surface_.at(left, y), mask.along.data() + (left - maskLeft), across, right - left,
                  paint.color);
    };
    for (int y = box.top; y < box.bottom; ++y) {
      const std::uint16_t across = mask.across[static_cast<std::size_t>(y - maskTop)];
      const int first = maskLeft + mask.firstAlike, last = maskLeft + mask.lastAlike;
      shadow(y, across, box.left, first);
      const int left = std::max(first, box.left), right = std::min(last, box.right);
      if (left < right) {
        const auto coverage = shadowCoverage(mask.along[static_cast<std::size_t>(mask.firstAlike)], across);
        tintRow(surface_.at(left, y), right - left, scaledPixel(paint.color, coverage));
      }
      shadow(y, across, last, box.right);
    }
  }

  void paint(const SubtreePaint& paint, const PixelBox& box) {
    const CairoSurfacePtr part =
        wrapPixels(reinterpret_cast<std::uint8_t*>(surface_.at(box.left, box.top)), box.width(), box.height(),
                   static_cast<std::size_t>(surface_.width) * sizeof(Pixel), CGPixelFormat());
    cairo_surface_set_device_offset(part.get(), -box.left, -box.top);
    paintSubtreePlainly(part.get(), *paint.layer, paint.inherited, deviceBox(box), moment_);
    cairo_surface_flush(part.get());
  }

 private:
  static void layRow(Pixel* row, const Pixel* from, int count, std::uint8_t opacity, bool opaque) {
    if (!opaque) {
      blendRow(row, from, count, opacity);
    } else if (opacity == fullOpacity) {
      copyRow(row, from, count);
    } else {
      fadeRow(row, from, count, opacity);
    }
  }

  static const Pixel* pixelsOf(const PicturePaint& paint, int x, int y) {
    return reinterpret_cast<const Pixel*>(paint.picture->row(y - paint.top)) + (x - paint.left);
  }

  PixelSurface surface_;
  FrameMoment moment_;
};

/// The picture, if `paint` is one that only needs copying.
const PicturePaint* copiedPicture(const Paint& paint) {
  const auto* picture = std::get_if<PicturePaint>(&paint.what);
  return picture && picture->opaque && picture->opacity == fullOpacity ? picture : nullptr;
}

}  // namespace

void paintVisible(const PixelSurface& surface, const std::vector<const Paint*>& backToFront,
                  const PixelRegion& region, const FrameMoment& moment) {
  BoxPainter painter(surface, moment);
  const auto visible = visibleFrontToBack(backToFront, region);
  for (auto next = visible.rbegin(); next != visible.rend(); ++next) {
    const auto front = std::next(next);
    // A picture under a tint: both in one pass.
    const auto* picture = copiedPicture(*next->paint);
    const auto* tint = front == visible.rend() ? nullptr : std::get_if<ColorPaint>(&front->paint->what);
    if (picture && tint && front->boxes == next->boxes) {
      for (const PixelBox& box : next->boxes) painter.paintTinted(*picture, *tint, box);
      next = front;
      continue;
    }
    for (const PixelBox& box : next->boxes)
      std::visit([&](const auto& what) { painter.paint(what, box); }, next->paint->what);
  }
}

void paintVisible(const PixelSurface& surface, const std::vector<Paint>& backToFront,
                  const PixelRegion& region, const FrameMoment& moment) {
  std::vector<const Paint*> pointers;
  for (const Paint& paint : backToFront) pointers.push_back(&paint);
  paintVisible(surface, pointers, region, moment);
}
