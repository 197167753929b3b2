// Compiled once for each kind of vector instructions that Highway knows of this architecture; the best that
// the machine has is chosen when it runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "effects/stack_blur_vectors.cpp"
#include <hwy/foreach_target.h>
// After it, as Highway wants it.
#include <hwy/highway.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>

#include "effects/stack_blur_vectors.h"
#include "effects/stack_blur_windows-inl.h"

HWY_BEFORE_NAMESPACE();
namespace vistrel::stack_blur::HWY_NAMESPACE {
namespace {

#if HWY_TARGET == HWY_SCALAR

bool blur(Pixel*, std::uint32_t, std::uint32_t, std::uint32_t) { return false; }

#else

constexpr std::uint32_t quad = 4;  // Pixels in a block of 128 bits, within which vectors are transposed.

std::unique_ptr<Pixel[]> roomFor(std::size_t pixels) {
  return std::make_unique_for_overwrite<Pixel[]>(pixels);
}

// Rows that are turned into columns and back.

/// A quad of each of `lanes` / 4 rows, every fourth one from rows[0] on.
template <class Block>
HWY_INLINE hn::Vec<Block> loadQuads(Block block, const Pixel* const* rows, std::uint32_t x) {
  if constexpr (hn::MaxLanes(block) == quad) {
    return hn::LoadU(block, rows[0] + x);
  } else {
    const hn::Half<Block> half;
    const auto lower = loadQuads(half, rows, x);
    return hn::Combine(block, loadQuads(half, rows + hn::MaxLanes(half), x), lower);
  }
}

template <class Block>
HWY_INLINE void storeQuads(Block block, hn::Vec<Block> quads, Pixel* const* rows, std::uint32_t x) {
  if constexpr (hn::MaxLanes(block) == quad) {
    hn::StoreU(quads, block, rows[0] + x);
  } else {
    const hn::Half<Block> half;
    storeQuads(half, hn::LowerHalf(half, quads), rows, x);
    storeQuads(half, hn::UpperHalf(half, quads), rows + hn::MaxLanes(half), x);
  }
}

/// Within each block of 128 bits.
HWY_INLINE void transpose(Vector& a, Vector& b, Vector& c, Vector& d) {
  const Pixels pixels;
  const Doubles doubles;
  const auto abLower = hn::BitCast(doubles, hn::InterleaveLower(pixels, a, b));
  const auto abUpper = hn::BitCast(doubles, hn::InterleaveUpper(pixels, a, b));
  const auto cdLower = hn::BitCast(doubles, hn::InterleaveLower(pixels, c, d));
  const auto cdUpper = hn::BitCast(doubles, hn::InterleaveUpper(pixels, c, d));
  a = asPixels(hn::InterleaveLower(doubles, abLower, cdLower));
  b = asPixels(hn::InterleaveUpper(doubles, abLower, cdLower));
  c = asPixels(hn::InterleaveLower(doubles, abUpper, cdUpper));
  d = asPixels(hn::InterleaveUpper(doubles, abUpper, cdUpper));
}

/// As many rows as a vector has lanes, a column a vector.
class Strip {
 public:
  explicit Strip(std::uint32_t width) : width_(width), pixels_(roomFor(std::size_t(width) * lanes)) {}

  HWY_INLINE Vector column(std::uint32_t x) const { return load(pixels_.get() + std::size_t(x) * lanes); }

  void read(const Pixel* const (&rows)[lanes]) {
    std::uint32_t x = 0;
    for (; x + quad <= width_; x += quad) {
      Vector a = loadQuads(Pixels(), rows, x), b = loadQuads(Pixels(), rows + 1, x),
             c = loadQuads(Pixels(), rows + 2, x), d = loadQuads(Pixels(), rows + 3, x);
      transpose(a, b, c, d);
      Pixel* const columns = pixels_.get() + std::size_t(x) * lanes;
      store(a, columns);
      store(b, columns + lanes);
      store(c, columns + 2 * lanes);
      store(d, columns + 3 * lanes);
    }
    for (; x < width_; ++x) {
      for (std::uint32_t y = 0; y < lanes; ++y)
        std::memcpy(pixels_.get() + std::size_t(x) * lanes + y, rows[y] + x, sizeof(Pixel));
    }
  }

  /// Blurs along the rows. `rows` have room for whole quads.
  void writeBlurred(Pixel* const (&rows)[lanes], std::uint32_t radius, const Mean& mean) const {
    const std::uint32_t last = width_ - 1, inside = std::min(radius, last);
    Windows windows(column(0), radius);
    for (std::uint32_t x = 1; x <= inside; ++x) windows.letIn(column(x));
    windows.letIn(column(last), radius - inside);
    windows.letOut(column(0), radius);

    // A quad may reach beyond the end.
    const auto blurred = [&](std::uint32_t at) HWY_ATTR {
      const std::uint32_t x = std::min(at, last);
      const Vector centre = column(x), result = windows.blurred(centre, mean);
      windows.advance(column(x > radius ? x - radius - 1 : 0), centre,
                      column(std::min(x + radius + 1, last)));
      return result;
    };
    for (std::uint32_t x = 0; x < width_; x += quad) {
      Vector a = blurred(x), b = blurred(x + 1), c = blurred(x + 2), d = blurred(x + 3);
      transpose(a, b, c, d);
      storeQuads(Pixels(), a, rows, x);
      storeQuads(Pixels(), b, rows + 1, x);
      storeQuads(Pixels(), c, rows + 2, x);
      storeQuads(Pixels(), d, rows + 3, x);
    }
  }

 private:
  std::uint32_t width_;
  std::unique_ptr<Pixel[]> pixels_;
};

/// The blur of one picture, in place: no row is written before it has been blurred along itself. Rows are
/// blurred along themselves a strip at a time, as they are needed; down the columns a few rows at a time, so
/// that the windows' state is not fetched for each of them.
class Blur {
 public:
  Blur(Pixel* buffer, std::uint32_t width, std::uint32_t height, std::uint32_t radius)
      : buffer_(buffer),
        width_(width),
        height_(height),
        radius_(radius),
        mean_(Division(radius)),
        stride_((std::size_t(width) + lanes - 1) / lanes * lanes),
        // As far as a window reaches to either side of the rows at hand, and the strip that is ahead of them.
        ringRows_(std::min(height, 2 * radius + 1 + rowsAtOnce + lanes)),
        ring_(roomFor(ringRows_ * stride_)),
        firstRow_(roomFor(stride_)),
        unusedRow_(roomFor(stride_)),
        windows_(roomFor(stride_ / lanes * Windows::pixelsStored)),
        strip_(width) {}

  void run() {
    start();
    for (std::uint32_t y = 0; y < height_; y += rowsAtOnce) blurRows(y, std::min(height_ - y, rowsAtOnce));
  }

 private:
  static constexpr std::uint32_t rowsAtOnce = 4;
  using Rows = const Pixel* [rowsAtOnce];

  /// A row that has been blurred along itself, and not so long ago that another took its place.
  Pixel* row(std::uint32_t y) const { return ring_.get() + y % ringRows_ * stride_; }

  void blurAlongUpTo(std::uint32_t y) {
    for (; ready_ <= y; ready_ += lanes) {
      const Pixel* from[lanes];
      Pixel* to[lanes];
      for (std::uint32_t k = 0; k < lanes; ++k) {
        const bool exists = ready_ + k < height_;
        from[k] = buffer_ + std::size_t(exists ? ready_ + k : height_ - 1) * width_;
        to[k] = exists ? row(ready_ + k) : unusedRow_.get();
      }
      strip_.read(from);
      strip_.writeBlurred(to, radius_, mean_);
    }
  }

  /// Calls work(x, windows) for each vector of columns, from the left.
  template <class Work>
  HWY_INLINE void forEachWindows(Work work) {
    Pixel* stored = windows_.get();
    for (std::size_t x = 0; x < stride_; x += lanes, stored += Windows::pixelsStored) {
      Windows windows(stored);
      work(x, windows);
      windows.storeTo(stored);
    }
  }

  void start() {
    blurAlongUpTo(0);
    std::copy_n(row(0), stride_, firstRow_.get());
    const Pixel* const first = firstRow_.get();
    for (std::size_t x = 0; x < stride_; x += lanes)
      Windows(load(first + x), radius_).storeTo(windows_.get() + x / lanes * Windows::pixelsStored);

    const std::uint32_t last = height_ - 1, inside = std::min(radius_, last);
    for (std::uint32_t y = 1; y <= inside; y += rowsAtOnce) {
      const std::uint32_t count = std::min(inside - y + 1, rowsAtOnce);
      blurAlongUpTo(y + count - 1);
      Rows rows;
      for (std::uint32_t k = 0; k < count; ++k) rows[k] = row(y + k);
      forEachWindows([&](std::size_t x, Windows& windows) HWY_ATTR {
        for (std::uint32_t k = 0; k < count; ++k) windows.letIn(load(rows[k] + x));
      });
    }
    forEachWindows([&, end = row(inside)](std::size_t x, Windows& windows) HWY_ATTR {
      windows.letIn(load(end + x), radius_ - inside);
      windows.letOut(load(first + x), radius_);
    });
  }

  void blurRows(std::uint32_t y, std::uint32_t count) {
    const std::uint32_t last = height_ - 1;
    blurAlongUpTo(std::min(y + count + radius_, last));
    Rows leaving, centre, entering;
    for (std::uint32_t k = 0; k < count; ++k) {
      leaving[k] = y + k > radius_ ? row(y + k - radius_ - 1) : firstRow_.get();
      centre[k] = row(y + k);
      entering[k] = row(std::min(y + k + radius_ + 1, last));
    }
    Pixel* const to = buffer_ + std::size_t(y) * width_;
    forEachWindows([&](std::size_t x, Windows& windows) HWY_ATTR {
      for (std::uint32_t k = 0; k < count; ++k) {
        const Vector at = load(centre[k] + x);
        write(windows.blurred(at, mean_), to + std::size_t(k) * width_, x);
        windows.advance(load(leaving[k] + x), at, load(entering[k] + x));
      }
    });
  }

  HWY_INLINE void write(Vector pixels, Pixel* row, std::size_t x) const {
    if (x + lanes <= width_) {
      store(pixels, row + x);
    } else {
      Pixel end[lanes];
      store(pixels, end);
      std::memcpy(row + x, end, (width_ - x) * sizeof(Pixel));
    }
  }

  Pixel* buffer_;
  std::uint32_t width_, height_, radius_;
  Mean mean_;
  std::size_t stride_;  // Of rows, in pixels: whole vectors.
  std::uint32_t ringRows_;
  std::unique_ptr<Pixel[]> ring_;  // Rows that are blurred along themselves.
  std::uint32_t ready_ = 0;        // How many have been.
  std::unique_ptr<Pixel[]> firstRow_, unusedRow_, windows_;
  Strip strip_;
};

bool blur(Pixel* buffer, std::uint32_t width, std::uint32_t height, std::uint32_t radius) {
  Blur(buffer, width, height, radius).run();
  return true;
}

#endif

}  // namespace
}  // namespace vistrel::stack_blur::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace vistrel {
namespace stack_blur {
HWY_EXPORT(blur);
}  // namespace stack_blur

bool blurInVectors(std::uint8_t* buffer, std::uint32_t width, std::uint32_t height, std::uint32_t radius) {
  using namespace stack_blur;
  return HWY_DYNAMIC_DISPATCH(blur)(reinterpret_cast<Pixel*>(buffer), width, height, radius);
}

}  // namespace vistrel

#endif
