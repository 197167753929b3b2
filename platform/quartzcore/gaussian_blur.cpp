// Compiled once for each kind of vector instructions that Highway knows of this architecture; the best that
// the machine has is chosen when it runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/quartzcore/gaussian_blur.cpp"
#include <hwy/foreach_target.h>
// After it, as Highway wants it.
#include <hwy/aligned_allocator.h>
#include <hwy/highway.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "platform/quartzcore/gaussian_blur.h"

#ifndef GAUSSIAN_KERNEL_DEFINED
#define GAUSSIAN_KERNEL_DEFINED

namespace gaussian_blur {

/// Two neighbours, 15 bits each and the first one lower. One instruction multiplies them by the two weights
/// of another pair and adds the products.
using Pair = std::uint32_t;
inline Pair pairOf(int first, int second) { return Pair(first) | Pair(second) << 16; }

constexpr std::size_t channels = 4;
constexpr int valueBits = 8;
constexpr int fractionBits = 5;  // What values have besides once they are blurred along their rows.
constexpr int sumBits = 31;      // Of the largest value times all weights, with half a step for rounding.
constexpr int mostWeight = 0x7FFF;

/// The weights of a Gaussian as whole numbers that add up to 1 << bits.
struct Kernel {
  int reach = 0;  // How many there are on either side of the middle.
  int bits = 0;
  std::vector<Pair> pairs;       // All of them from the first on, and a zero at the end.
  std::vector<Pair> pairsLater;  // The same for the place after: a zero, and all of them.
};

inline Kernel gaussianKernel(double sigma, int mostBits) {
  Kernel kernel;
  if (sigma > 0) kernel.reach = static_cast<int>(std::ceil(sigma * gaussianReach));
  const auto gaussian = [&](int i) { return i == 0 ? 1 : std::exp(-0.5 * (i / sigma) * (i / sigma)); };
  double whole = 0;
  for (int i = -kernel.reach; i <= kernel.reach; ++i) whole += gaussian(i);
  kernel.bits = mostBits;
  while (std::ldexp(1 / whole, kernel.bits) + 1 > mostWeight) --kernel.bits;

  // Sums of the first few are rounded, not single weights: their errors do not add up, and nothing is left
  // over at the end.
  std::vector<int> weights = {0};
  double part = 0;
  int before = 0;
  for (int i = -kernel.reach; i <= kernel.reach; ++i) {
    part += gaussian(i);
    const int rounded = static_cast<int>(std::lround(std::ldexp(part / whole, kernel.bits)));
    weights.push_back(rounded - before);
    before = rounded;
  }
  weights.push_back(0);
  for (std::size_t i = 0; i + 2 < weights.size(); i += 2) {
    kernel.pairs.push_back(pairOf(weights[i + 1], weights[i + 2]));
    kernel.pairsLater.push_back(pairOf(weights[i], weights[i + 1]));
  }
  return kernel;
}

}  // namespace gaussian_blur

#endif

HWY_BEFORE_NAMESPACE();
namespace gaussian_blur::HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET == HWY_SCALAR

// No vectors on this machine: a value at a time.
using Sum = std::int32_t;
std::size_t vectorSize() { return 1; }
Pair load(const Pair* pairs) { return *pairs; }
Pair loadBytes(const std::uint8_t* bytes) { return *bytes; }
void store(Pair pair, Pair* to) { *to = pair; }
void storeBytes(Sum value, std::uint8_t* to) { *to = static_cast<std::uint8_t>(value); }
Pair all(Pair pair) { return pair; }
Sum allSums(Sum sum) { return sum; }
Pair joined(Pair first, Pair second) { return first | second << 16; }
Pair joinedSums(Sum first, Sum second) { return pairOf(first, second); }
Sum weighed(Pair values, Pair weights, Sum sum, Sum&) {
  return sum + Sum((values & 0xFFFF) * (weights & 0xFFFF) + (values >> 16) * (weights >> 16));
}
Sum scaledDown(Sum sum, Sum, int bits) { return (sum + (1 << (bits - 1))) >> bits; }

#else

using Sums = hn::ScalableTag<std::int32_t>;
using Pairs = hn::RebindToUnsigned<Sums>;
using Values = hn::Repartition<std::int16_t, Sums>;
using Bytes = hn::Rebind<std::uint8_t, Sums>;
using SumVector = hn::Vec<Sums>;
using PairVector = hn::Vec<Pairs>;

std::size_t vectorSize() { return hn::Lanes(Sums()); }
PairVector load(const Pair* pairs) { return hn::LoadU(Pairs(), pairs); }
PairVector loadBytes(const std::uint8_t* bytes) { return hn::PromoteTo(Pairs(), hn::LoadU(Bytes(), bytes)); }
void store(PairVector pairs, Pair* to) { hn::StoreU(pairs, Pairs(), to); }
void storeBytes(SumVector values, std::uint8_t* to) {
  hn::StoreU(hn::DemoteTo(Bytes(), values), Bytes(), to);
}
PairVector all(Pair pair) { return hn::Set(Pairs(), pair); }
SumVector allSums(std::int32_t sum) { return hn::Set(Sums(), sum); }
PairVector joined(PairVector first, PairVector second) { return hn::Or(first, hn::ShiftLeft<16>(second)); }
PairVector joinedSums(SumVector first, SumVector second) {
  return joined(hn::BitCast(Pairs(), first), hn::BitCast(Pairs(), second));
}

/// The sum with the products added; some vectors have a part of it in `rest`.
SumVector weighed(PairVector values, PairVector weights, SumVector sum, SumVector& rest) {
  const Values tag;
  return hn::ReorderWidenMulAccumulate(Sums(), hn::BitCast(tag, values), hn::BitCast(tag, weights), sum,
                                       rest);
}
/// Rounded. The half goes to the whole sum, since some vectors have two lanes of it in one of the parts.
SumVector scaledDown(SumVector sum, SumVector rest, int bits) {
  const auto whole = hn::RearrangeToOddPlusEven(sum, rest);
  return hn::ShiftRightSame(hn::Add(whole, allSums(1 << (bits - 1))), bits);
}

#endif

std::size_t valuesAtATime() { return 2 * vectorSize(); }

/// Weighs the values of two rows: `upper(k)` and `lower(k)` are where those begin that go with the k-th pair
/// of weights. Hands the sums, without `bits` of their bits, to take(i, upper, lower).
template <class Upper, class Lower, class Take>
void weigh(const std::vector<Pair>& upperWeights, const std::vector<Pair>& lowerWeights, int bits,
           std::size_t count, Upper upper, Lower lower, Take take) {
  const std::size_t size = vectorSize(), pairs = upperWeights.size();
  const auto zero = allSums(0);
  for (std::size_t i = 0; i < count; i += 2 * size) {
    auto upper0 = zero, upper1 = zero, lower0 = zero, lower1 = zero;
    auto upper0Rest = zero, upper1Rest = zero, lower0Rest = zero, lower1Rest = zero;
    for (std::size_t k = 0; k < pairs; ++k) {
      const auto upperPair = all(upperWeights[k]), lowerPair = all(lowerWeights[k]);
      upper0 = weighed(load(upper(k) + i), upperPair, upper0, upper0Rest);
      lower0 = weighed(load(lower(k) + i), lowerPair, lower0, lower0Rest);
      upper1 = weighed(load(upper(k) + i + size), upperPair, upper1, upper1Rest);
      lower1 = weighed(load(lower(k) + i + size), lowerPair, lower1, lower1Rest);
    }
    take(i, scaledDown(upper0, upper0Rest, bits), scaledDown(lower0, lower0Rest, bits));
    take(i + size, scaledDown(upper1, upper1Rest, bits), scaledDown(lower1, lower1Rest, bits));
  }
}

/// Pairs every channel with that of the next pixel.
void pairWithNext(const std::uint8_t* bytes, std::size_t count, Pair* to) {
  for (std::size_t i = 0; i < count; i += vectorSize())
    store(joined(loadBytes(bytes + i), loadBytes(bytes + i + channels)), to + i);
}

/// Blurs two rows along themselves and pairs the one's values with those of the other.
void blurAlong(const Pair* upper, const Pair* lower, const Kernel& kernel, std::size_t count, Pair* to) {
  const auto at = [](const Pair* row) { return [=](std::size_t k) { return row + k * 2 * channels; }; };
  weigh(kernel.pairs, kernel.pairs, kernel.bits - fractionBits, count, at(upper), at(lower),
        [=](std::size_t i, auto first, auto second) { store(joinedSums(first, second), to + i); });
}

/// Blurs across pairs of rows: to the first row that has them all within its reach, and to the next.
void blurAcross(const Pair* const* rows, const Kernel& kernel, std::size_t count, std::uint8_t* upper,
                std::uint8_t* lower) {
  const auto at = [=](std::size_t k) { return rows[k]; };
  weigh(kernel.pairs, kernel.pairsLater, kernel.bits + fractionBits, count, at, at,
        [=](std::size_t i, auto first, auto second) {
          storeBytes(first, upper + i);
          storeBytes(second, lower + i);
        });
}

}  // namespace
}  // namespace gaussian_blur::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace gaussian_blur {
HWY_EXPORT(valuesAtATime);
HWY_EXPORT(pairWithNext);
HWY_EXPORT(blurAlong);
HWY_EXPORT(blurAcross);

namespace {

using AlignedPairs = hwy::AlignedFreeUniquePtr<Pair[]>;

/// The same or more, so that no vector is but partly needed.
std::size_t wholeVectors(std::size_t values) {
  const std::size_t size = HWY_DYNAMIC_DISPATCH(valuesAtATime)();
  return (values + size - 1) / size * size;
}

/// Blurs rows along themselves, two at a time.
class RowBlur {
 public:
  RowBlur(double sigma, std::size_t width)
      : kernel_(gaussianKernel(sigma, sumBits - valueBits)),
        width_(width),
        reach_(static_cast<std::size_t>(kernel_.reach)),
        pairs_(wholeVectors(width * channels) + wholeVectors(2 * reach_ * channels)),
        padded_(pairs_ / channels + 1),
        upper_(hwy::AllocateAligned<Pair>(pairs_)),
        lower_(hwy::AllocateAligned<Pair>(pairs_)) {}

  void blur(const std::uint8_t* upper, const std::uint8_t* lower, Pair* to) {
    prepare(upper, upper_.get());
    prepare(lower, lower_.get());
    HWY_DYNAMIC_DISPATCH(blurAlong)(upper_.get(), lower_.get(), kernel_, width_ * channels, to);
  }

 private:
  void prepare(const std::uint8_t* row, Pair* to) {
    std::uint32_t *first = padded_.data() + reach_, *end = first + width_;
    std::memcpy(first, row, width_ * channels);
    std::fill_n(padded_.data(), reach_, *first);
    std::fill_n(end, reach_, end[-1]);
    HWY_DYNAMIC_DISPATCH(pairWithNext)(reinterpret_cast<const std::uint8_t*>(padded_.data()), pairs_, to);
  }

  Kernel kernel_;
  std::size_t width_, reach_, pairs_;
  std::vector<std::uint32_t> padded_;  // The pixels of a row, with its ends repeated.
  AlignedPairs upper_, lower_;
};

/// Pairs of rows that are blurred along themselves, as many as one blur across them needs at a time.
class RowRing {
 public:
  RowRing(std::size_t rows, std::size_t values)
      : rows_(rows), values_(wholeVectors(values)), pairs_(hwy::AllocateAligned<Pair>(rows_ * values_)) {}
  Pair* row(int i) { return pairs_.get() + static_cast<std::size_t>(i) % rows_ * values_; }

 private:
  std::size_t rows_, values_;
  AlignedPairs pairs_;
};

}  // namespace
}  // namespace gaussian_blur

using namespace gaussian_blur;

void blurGaussian(std::uint8_t* pixels, int width, int height, std::size_t bytesPerRow, double sigmaX,
                  double sigmaY) {
  if (width <= 0 || height <= 0) return;
  const auto pixelRow = [&](int y) { return pixels + static_cast<std::size_t>(y) * bytesPerRow; };
  const std::size_t count = static_cast<std::size_t>(width) * channels;
  const Kernel kernel = gaussianKernel(sigmaY, sumBits - valueBits - fractionBits);
  const int reach = kernel.reach;

  RowBlur rowBlur(sigmaX, static_cast<std::size_t>(width));
  std::vector<const Pair*> rows(kernel.pairs.size());
  RowRing ring(rows.size(), count);
  std::vector<std::uint8_t> upper(wholeVectors(count)), lower(upper.size());

  // Pair i of rows begins `reach` above row 2 i. Those before the first and after the last one here would
  // hold nothing but the edge, as these two do.
  const int first = std::max(reach - 1, 0) / 2, last = (height + reach) / 2;
  int blurred = first;
  for (int y = 0; y < height; y += 2) {
    for (int k = 0; k <= reach; ++k) {
      const int i = std::clamp(y / 2 + k, first, last);
      for (; blurred <= i; ++blurred) {
        const int top = 2 * blurred - reach;
        rowBlur.blur(pixelRow(std::clamp(top, 0, height - 1)), pixelRow(std::clamp(top + 1, 0, height - 1)),
                     ring.row(blurred));
      }
      rows[static_cast<std::size_t>(k)] = ring.row(i);
    }
    HWY_DYNAMIC_DISPATCH(blurAcross)(rows.data(), kernel, count, upper.data(), lower.data());
    std::copy_n(upper.data(), count, pixelRow(y));
    if (y + 1 < height) std::copy_n(lower.data(), count, pixelRow(y + 1));
  }
}

#endif
