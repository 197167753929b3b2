// Compiled once for each kind of vector instructions that Highway knows of this architecture; the best that
// the machine has is chosen when it runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/quartzcore/pixel_rows.cpp"
#include <hwy/foreach_target.h>
// After it, as Highway wants it.
#include <hwy/highway.h>

#include <algorithm>
#include <cstddef>

#include "platform/quartzcore/pixel_rows.h"
#include "platform/quartzcore/shadow.h"

#ifndef PLAIN_PIXELS_DEFINED
#define PLAIN_PIXELS_DEFINED

namespace pixel_rows {

/// A pixel's four channels in four 16-bit lanes of one number.
using Lanes = std::uint64_t;
inline Lanes lanesOf(Pixel pixel) { return (pixel & 0x00FF00FFull) | (Lanes{pixel & 0xFF00FF00u} << 24); }
inline Pixel pixelOf(Lanes lanes) { return Pixel(lanes & 0x00FF00FF) | Pixel((lanes >> 24) & 0xFF00FF00); }

/// Every channel times `factor` / 255, rounded.
inline Pixel scaled(Pixel pixel, unsigned factor) {
  constexpr Lanes halves = 0x0080008000800080, bytes = 0x00FF00FF00FF00FF;
  const Lanes t = lanesOf(pixel) * factor + halves;
  return pixelOf(((t + ((t >> 8) & bytes)) >> 8) & bytes);
}
/// What a pixel leaves of what is below it.
inline unsigned restOf(Pixel pixel) { return 255 - (pixel >> 24); }

}  // namespace pixel_rows

#endif

HWY_BEFORE_NAMESPACE();
namespace pixel_rows::HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET == HWY_SCALAR

// No vectors on this machine: a pixel at a time.
constexpr int mostPixels = 1;
int pixelsAtATime() { return mostPixels; }
Pixel load(const Pixel* pixels) { return *pixels; }
void store(Pixel pixel, Pixel* to) { *to = pixel; }
Pixel all(Pixel pixel) { return pixel; }
unsigned factorOf(unsigned factor) { return factor; }
Pixel madeOpaque(Pixel pixel) { return pixel | opaqueBlackPixel; }
Pixel sum(Pixel one, Pixel other) { return one + other; }
unsigned coverageAt(const std::uint16_t* along, std::uint16_t across) {
  return shadowCoverage(*along, across);
}

#else

using Pixels = hn::ScalableTag<std::uint32_t>;
using Pairs = hn::Repartition<std::uint16_t, Pixels>;  // Two channels each.
using Bytes = hn::Repartition<std::uint8_t, Pixels>;
using PixelVector = hn::Vec<Pixels>;
using PairVector = hn::Vec<Pairs>;

constexpr int mostPixels = int(hn::MaxLanes(Pixels()));
int pixelsAtATime() { return int(hn::Lanes(Pixels())); }
PixelVector load(const Pixel* pixels) { return hn::LoadU(Pixels(), pixels); }
void store(PixelVector vector, Pixel* to) { hn::StoreU(vector, Pixels(), to); }
PixelVector all(Pixel pixel) { return hn::Set(Pixels(), pixel); }
PixelVector madeOpaque(PixelVector pixels) { return hn::Or(pixels, all(opaqueBlackPixel)); }

/// With 8 more bits, so that x / 255 becomes x / 65536.
PairVector factorOf(unsigned factor) { return hn::Set(Pairs(), static_cast<std::uint16_t>(factor * 257)); }

/// The same for each pixel's own byte.
PairVector factorsOf(PixelVector bytes) {
  const auto factor = hn::Or(bytes, hn::ShiftLeft<8>(bytes));
  return hn::BitCast(Pairs(), hn::Or(factor, hn::ShiftLeft<16>(factor)));
}

PairVector restOf(PixelVector pixels) { return factorsOf(hn::Sub(all(255), hn::ShiftRight<24>(pixels))); }

/// The upper channel of each pair is where a product that keeps its high half wants it; the lower one is
/// brought there and back.
PixelVector scaled(PixelVector pixels, PairVector factor) {
  const Pairs pairs;
  const auto half = hn::Set(pairs, 128);
  const auto upperBytes = hn::Set(pairs, 0xFF00);
  const auto both = hn::BitCast(pairs, pixels);
  const auto lower = hn::Add(hn::MulHigh(hn::ShiftLeft<8>(both), factor), half);
  const auto upper = hn::Add(hn::MulHigh(hn::And(both, upperBytes), factor), half);
  return hn::BitCast(Pixels(), hn::Or(hn::ShiftRight<8>(lower), hn::And(upper, upperBytes)));
}

PixelVector sum(PixelVector one, PixelVector other) {
  const Bytes bytes;
  return hn::BitCast(Pixels(), hn::SaturatedAdd(hn::BitCast(bytes, one), hn::BitCast(bytes, other)));
}

/// shadowCoverage() of each pixel.
PairVector coverageAt(const std::uint16_t* along, std::uint16_t across) {
  const hn::Rebind<std::uint16_t, Pixels> halves;
  const auto product = hn::Mul(hn::PromoteTo(Pixels(), hn::LoadU(halves, along)), all(across));
  return factorsOf(hn::ShiftRight<8>(hn::Add(hn::ShiftRight<16>(product), all(128))));
}

#endif

/// row[i] = combine(row[i], source[i]), a vector at a time. The two rows may be one.
template <class Combine>
void forEachPixel(Pixel* row, const Pixel* source, int count, Combine combine) {
  const int step = pixelsAtATime();
  int i = 0;
  for (; i + step <= count; i += step) store(combine(load(row + i), load(source + i)), row + i);
  const int left = count - i;
  if (left <= 0) return;
  Pixel rowEnd[mostPixels] = {}, sourceEnd[mostPixels] = {};
  for (int k = 0; k < left; ++k) rowEnd[k] = row[i + k], sourceEnd[k] = source[i + k];
  store(combine(load(rowEnd), load(sourceEnd)), rowEnd);
  for (int k = 0; k < left; ++k) row[i + k] = rowEnd[k];
}

void copy(Pixel* row, const Pixel* opaque, int count) {
  forEachPixel(row, opaque, count, [](auto, auto source) { return madeOpaque(source); });
}

void tint(Pixel* row, int count, Pixel color) {
  const auto tint = all(color);
  const auto rest = factorOf(pixel_rows::restOf(color));
  forEachPixel(row, row, count, [=](auto below, auto) { return sum(scaled(below, rest), tint); });
}

void copyTinted(Pixel* row, const Pixel* opaque, int count, Pixel color) {
  const auto tint = all(color);
  const auto rest = factorOf(pixel_rows::restOf(color));
  forEachPixel(row, opaque, count,
               [=](auto, auto source) { return sum(scaled(madeOpaque(source), rest), tint); });
}

void fade(Pixel* row, const Pixel* opaque, int count, std::uint8_t opacity) {
  const auto part = factorOf(opacity), rest = factorOf(255u - opacity);
  forEachPixel(row, opaque, count, [=](auto below, auto source) {
    return sum(scaled(madeOpaque(source), part), scaled(below, rest));
  });
}

void blend(Pixel* row, const Pixel* source, int count, std::uint8_t opacity) {
  const auto part = factorOf(opacity);
  forEachPixel(row, source, count, [=](auto below, auto above) {
    const auto faded = scaled(above, part);
    return sum(faded, scaled(below, restOf(faded)));
  });
}

void fill(Pixel* row, int count, Pixel color) {
  const auto filling = all(color);
  forEachPixel(row, row, count, [=](auto, auto) { return filling; });
}

void shadow(Pixel* row, const std::uint16_t* along, std::uint16_t across, int count, Pixel color) {
  const auto shaded = [color = all(color)](auto below, auto coverage) {
    const auto shadow = scaled(color, coverage);
    return sum(shadow, scaled(below, restOf(shadow)));
  };
  const int step = pixelsAtATime();
  int i = 0;
  for (; i + step <= count; i += step) store(shaded(load(row + i), coverageAt(along + i, across)), row + i);
  const int left = count - i;
  if (left <= 0) return;
  Pixel rowEnd[mostPixels] = {};
  std::uint16_t alongEnd[mostPixels] = {};
  for (int k = 0; k < left; ++k) rowEnd[k] = row[i + k], alongEnd[k] = along[i + k];
  store(shaded(load(rowEnd), coverageAt(alongEnd, across)), rowEnd);
  for (int k = 0; k < left; ++k) row[i + k] = rowEnd[k];
}

}  // namespace
}  // namespace pixel_rows::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace pixel_rows {
HWY_EXPORT(copy);
HWY_EXPORT(tint);
HWY_EXPORT(copyTinted);
HWY_EXPORT(fade);
HWY_EXPORT(blend);
HWY_EXPORT(fill);
HWY_EXPORT(shadow);
}  // namespace pixel_rows

using namespace pixel_rows;

Pixel scaledPixel(Pixel pixel, std::uint8_t factor) { return scaled(pixel, factor); }

void fillRow(Pixel* row, int count, Pixel color) { HWY_DYNAMIC_DISPATCH(fill)(row, count, color); }

void tintRow(Pixel* row, int count, Pixel color) { HWY_DYNAMIC_DISPATCH(tint)(row, count, color); }

void copyRow(Pixel* row, const Pixel* opaque, int count) { HWY_DYNAMIC_DISPATCH(copy)(row, opaque, count); }

void copyTintedRow(Pixel* row, const Pixel* opaque, int count, Pixel color) {
  HWY_DYNAMIC_DISPATCH(copyTinted)(row, opaque, count, color);
}

void fadeRow(Pixel* row, const Pixel* opaque, int count, std::uint8_t opacity) {
  HWY_DYNAMIC_DISPATCH(fade)(row, opaque, count, opacity);
}

void blendRow(Pixel* row, const Pixel* source, int count, std::uint8_t opacity) {
  HWY_DYNAMIC_DISPATCH(blend)(row, source, count, opacity);
}

void shadowRow(Pixel* row, const std::uint16_t* along, std::uint16_t across, int count, Pixel color) {
  HWY_DYNAMIC_DISPATCH(shadow)(row, along, across, count, color);
}

#endif
