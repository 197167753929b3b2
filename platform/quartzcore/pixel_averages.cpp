// Compiled once for each kind of vector instructions that Highway knows of this architecture; the best that
// the machine has is chosen when it runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/quartzcore/pixel_averages.cpp"
#include <hwy/foreach_target.h>
// After it, as Highway wants it.
#include <hwy/highway.h>

#include <cstddef>

#include "platform/quartzcore/pixel_averages.h"

#ifndef PLAIN_AVERAGES_DEFINED
#define PLAIN_AVERAGES_DEFINED

namespace pixel_averages {

/// A channel has 16 bits here, 8 of them for the fraction, as in the vectors.
inline Pixel averageOf(const Pixel* const* rows, const std::uint16_t* weights, int rowCount, int i,
                       Pixel alpha) {
  Pixel result = 0;
  for (int shift = 0; shift < 32; shift += 8) {
    Pixel sum = 128;
    for (int k = 0; k < rowCount; ++k)
      sum += (((rows[k][i] | alpha) >> shift & 0xFF) << 8) * weights[k] >> 16;
    result |= sum >> 8 << shift;
  }
  return result;
}

inline void transposeByPixels(const Pixel* from, int stride, int width, int height, Pixel* to, int toStride) {
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x)
      to[std::ptrdiff_t{x} * toStride + y] = from[std::ptrdiff_t{y} * stride + x];
  }
}

}  // namespace pixel_averages

#endif

HWY_BEFORE_NAMESPACE();
namespace pixel_averages::HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET == HWY_SCALAR

// No vectors on this machine.
void average(Pixel* row, const Pixel* const* rows, const std::uint16_t* weights, int rowCount, int count,
             Pixel alpha) {
  for (int i = 0; i < count; ++i) row[i] = averageOf(rows, weights, rowCount, i, alpha);
}

void transpose(const Pixel* from, int stride, int width, int height, Pixel* to, int toStride) {
  transposeByPixels(from, stride, width, height, to, toStride);
}

#else

using Pixels = hn::ScalableTag<std::uint32_t>;
using Pairs = hn::Repartition<std::uint16_t, Pixels>;  // Two channels each.

/// A vector of pixels from the i-th on.
hn::Vec<Pixels> averageVector(const Pixel* const* rows, const std::uint16_t* weights, int rowCount, int i,
                              Pixel alpha) {
  const Pixels pixels;
  const Pairs pairs;
  const auto half = hn::Set(pairs, 128), upperBytes = hn::Set(pairs, 0xFF00);
  auto lower = half, upper = half;
  for (int k = 0; k < rowCount; ++k) {
    const auto both = hn::BitCast(pairs, hn::Or(hn::LoadU(pixels, rows[k] + i), hn::Set(pixels, alpha)));
    const auto weight = hn::Set(pairs, weights[k]);
    lower = hn::Add(lower, hn::MulHigh(hn::ShiftLeft<8>(both), weight));
    upper = hn::Add(upper, hn::MulHigh(hn::And(both, upperBytes), weight));
  }
  return hn::BitCast(pixels, hn::Or(hn::ShiftRight<8>(lower), hn::And(upper, upperBytes)));
}

/// What is left at the end goes with a part of what is done.
void average(Pixel* row, const Pixel* const* rows, const std::uint16_t* weights, int rowCount, int count,
             Pixel alpha) {
  const int step = int(hn::Lanes(Pixels()));
  for (int i = 0; i < count; i += step) {
    const int at = i + step <= count ? i : count - step;
    if (at < 0) {
      for (int k = 0; k < count; ++k) row[k] = averageOf(rows, weights, rowCount, k, alpha);
    } else {
      hn::StoreU(averageVector(rows, weights, rowCount, at, alpha), Pixels(), row + at);
    }
  }
}

constexpr int quad = 4;  // Rows and columns of the squares that a picture is transposed by.
using Quad = hn::FixedTag<std::uint32_t, quad>;
using Halves = hn::Repartition<std::uint64_t, Quad>;

void transposeQuad(const Pixel* from, int stride, Pixel* to, int toStride) {
  const auto row = [=](std::ptrdiff_t y) { return hn::LoadU(Quad(), from + y * stride); };
  const auto write = [=](std::ptrdiff_t y, auto halves) {
    hn::StoreU(hn::BitCast(Quad(), halves), Quad(), to + y * toStride);
  };
  const auto lower = [](auto a, auto b) { return hn::BitCast(Halves(), hn::InterleaveLower(Quad(), a, b)); };
  const auto upper = [](auto a, auto b) { return hn::BitCast(Halves(), hn::InterleaveUpper(Quad(), a, b)); };
  const auto a = row(0), b = row(1), c = row(2), d = row(3);
  write(0, hn::InterleaveLower(Halves(), lower(a, b), lower(c, d)));
  write(1, hn::InterleaveUpper(Halves(), lower(a, b), lower(c, d)));
  write(2, hn::InterleaveLower(Halves(), upper(a, b), upper(c, d)));
  write(3, hn::InterleaveUpper(Halves(), upper(a, b), upper(c, d)));
}

void transpose(const Pixel* from, int stride, int width, int height, Pixel* to, int toStride) {
  const int wholeWidth = width - width % quad, wholeHeight = height - height % quad;
  const auto at = [=](int x, int y) { return from + std::ptrdiff_t{y} * stride + x; };
  const auto toAt = [=](int x, int y) { return to + std::ptrdiff_t{x} * toStride + y; };
  for (int y = 0; y < wholeHeight; y += quad) {
    for (int x = 0; x < wholeWidth; x += quad) transposeQuad(at(x, y), stride, toAt(x, y), toStride);
  }
  transposeByPixels(at(wholeWidth, 0), stride, width - wholeWidth, wholeHeight, toAt(wholeWidth, 0),
                    toStride);
  transposeByPixels(at(0, wholeHeight), stride, width, height - wholeHeight, toAt(0, wholeHeight), toStride);
}

#endif

}  // namespace
}  // namespace pixel_averages::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace pixel_averages {
HWY_EXPORT(average);
HWY_EXPORT(transpose);
}  // namespace pixel_averages

using namespace pixel_averages;

void averageRows(Pixel* row, const Pixel* const* rows, const std::uint16_t* weights, int rowCount, int count,
                 bool opaque) {
  HWY_DYNAMIC_DISPATCH(average)(row, rows, weights, rowCount, count, opaque ? opaqueBlackPixel : 0);
}

void transposePixels(const Pixel* from, int stride, int width, int height, Pixel* to, int toStride) {
  HWY_DYNAMIC_DISPATCH(transpose)(from, stride, width, height, to, toStride);
}

#endif
