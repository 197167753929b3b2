// The windows of the stack blur, in vectors. Included once for each kind of vector instructions.

#ifndef VISTREL_STACK_BLUR_NUMBERS
#define VISTREL_STACK_BLUR_NUMBERS

#include <bit>
#include <cstddef>
#include <cstdint>

#include "effects/stack_blur_vectors.h"

namespace vistrel::stack_blur {

using Pixel = std::uint32_t;  // Its first byte is the lowest.
constexpr Pixel lowestByte = 0xFF, alphaByte = 0xFF000000;
constexpr int channels = 3;  // The bytes of a pixel that are blurred.

/// 1 + 2 + ... + n.
constexpr std::uint32_t triangular(std::uint32_t n) { return n * (n + 1) / 2; }

/// Division of sums by d = (r + 1)^2, r >= 1, rounding down: a product with `reciprocal`, shifted right by
/// s = 32 + `shift`.
///
/// The reciprocal is 2^s / d + e with 0 <= e < 1, the product sum 2^s / d + e sum. What stands above bit s is
/// exact as long as e sum < 2^s / d. Sums reach 255 d, so 255 d^2 <= 2^s is enough. The reciprocal has 32
/// bits when 2^shift < d <= 2^(shift + 1); so 2^s >= 2^31 d, which is enough for d <= 2^31 / 255.
struct Division {
  explicit Division(std::uint32_t radius) {
    const std::uint32_t divisor = (radius + 1) * (radius + 1);
    shift = int(std::bit_width(divisor - 1)) - 1;
    reciprocal = std::uint32_t(((std::uint64_t{1} << (32 + shift)) + divisor - 1) / divisor);
  }

  std::uint32_t reciprocal;
  int shift;
};
static_assert(255ull * (maxVectorRadius + 1) * (maxVectorRadius + 1) <= 1ull << 31);

}  // namespace vistrel::stack_blur

#endif

// Highway's guard: once a target.
#if defined(VISTREL_STACK_BLUR_WINDOWS) == defined(HWY_TARGET_TOGGLE)
#ifdef VISTREL_STACK_BLUR_WINDOWS
#undef VISTREL_STACK_BLUR_WINDOWS
#else
#define VISTREL_STACK_BLUR_WINDOWS
#endif

#include <hwy/highway.h>

#if HWY_TARGET != HWY_SCALAR

// Along a line the weighted sums of neighbouring pixels differ by a slope, and neighbouring slopes by
//     bend(i) = pixel(i - r - 1) - 2 pixel(i) + pixel(i + r + 1),
// so that a window moves on by two additions a channel. All of it is done modulo 2^32.

HWY_BEFORE_NAMESPACE();
namespace vistrel::stack_blur::HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

using Pixels = hn::ScalableTag<std::uint32_t>;
using Signed = hn::RebindToSigned<Pixels>;
using Pairs = hn::Repartition<std::uint16_t, Pixels>;  // Two channels each.
using Doubles = hn::RepartitionToWide<Pixels>;         // Two pixels each.
using Vector = hn::Vec<Pixels>;

constexpr std::uint32_t lanes = hn::MaxLanes(Pixels());

HWY_INLINE Vector load(const Pixel* pixels) { return hn::LoadU(Pixels(), pixels); }
HWY_INLINE void store(Vector pixels, Pixel* to) { hn::StoreU(pixels, Pixels(), to); }
HWY_INLINE Vector all(std::uint32_t number) { return hn::Set(Pixels(), number); }
template <class V>
HWY_INLINE Vector asPixels(V vector) {
  return hn::BitCast(Pixels(), vector);
}

/// A number for each channel of a vector of pixels.
struct Channels {
  Vector of[channels];
};

HWY_INLINE Channels channelsOf(Vector pixels) {
  const Vector byte = all(lowestByte);
  return {{hn::And(pixels, byte), hn::And(hn::ShiftRight<8>(pixels), byte),
           hn::And(hn::ShiftRight<16>(pixels), byte)}};
}

/// before - 2 centre + after. Two channels at a time, for which 16 bits are enough.
HWY_INLINE Channels bendOf(Vector before, Vector centre, Vector after) {
  const Pairs pairs;
  const auto bend = [](auto a, auto b, auto c)
                        HWY_ATTR { return hn::BitCast(Signed(), hn::Sub(hn::Add(a, c), hn::Add(b, b))); };
  const auto even = [=](Vector v) HWY_ATTR {
    return hn::And(hn::BitCast(pairs, v), hn::Set(pairs, std::uint16_t(lowestByte)));
  };
  const auto odd = [=](Vector v) HWY_ATTR { return hn::ShiftRight<8>(hn::BitCast(pairs, v)); };
  const auto lower = [](auto pair) HWY_ATTR { return asPixels(hn::ShiftRight<16>(hn::ShiftLeft<16>(pair))); };
  const auto upper = [](auto pair) HWY_ATTR { return asPixels(hn::ShiftRight<16>(pair)); };
  const auto evenBend = bend(even(before), even(centre), even(after));
  const auto oddBend = bend(odd(before), odd(centre), odd(after));
  return {{lower(evenBend), lower(oddBend), upper(evenBend)}};
}

class Mean {
 public:
  explicit Mean(Division division) : reciprocal_(all(division.reciprocal)), shift_(division.shift) {}

  HWY_INLINE Vector operator()(Vector sum) const {
    const auto even = asPixels(hn::MulEven(sum, reciprocal_));
    const auto odd = asPixels(hn::MulEven(upperHalves(sum), reciprocal_));
    return hn::ShiftRightSame(hn::OddEven(odd, upperHalves(even)), shift_);
  }

 private:
  static HWY_INLINE Vector upperHalves(Vector v) {
    return asPixels(hn::ShiftRight<32>(hn::BitCast(Doubles(), v)));
  }

  Vector reciprocal_;
  int shift_;
};

/// Windows that move along their lines side by side, a line a lane.
class Windows {
 public:
  static constexpr std::size_t pixelsStored = 2 * channels * lanes;

  /// Before the first pixels, which stand for all before them, with nothing ahead yet.
  HWY_INLINE Windows(Vector first, std::uint32_t radius) {
    const Channels values = channelsOf(first);
    for (int k = 0; k < channels; ++k) {
      sum_.of[k] = hn::Mul(values.of[k], all(triangular(radius + 1)));
      slope_.of[k] = all(0);
    }
  }
  HWY_INLINE explicit Windows(const Pixel* stored) {
    for (std::uint32_t k = 0; k < channels; ++k) {
      sum_.of[k] = load(stored + k * lanes);
      slope_.of[k] = load(stored + (channels + k) * lanes);
    }
  }
  HWY_INLINE void storeTo(Pixel* stored) const {
    for (std::uint32_t k = 0; k < channels; ++k) {
      store(sum_.of[k], stored + k * lanes);
      store(slope_.of[k], stored + (channels + k) * lanes);
    }
  }

  /// Moves from before the first pixels onto them: the r pixels ahead come in, one after the other or the
  /// same one many times, and then as many of the `first` go out that stood in their place.
  HWY_INLINE void letIn(Vector pixels) { bendBy(channelsOf(pixels)); }
  HWY_INLINE void letIn(Vector pixels, std::uint32_t times) {
    const Channels values = channelsOf(pixels);
    for (int k = 0; k < channels; ++k) {
      const Vector growth = hn::Mul(slope_.of[k], all(times));
      const Vector bends = hn::Mul(values.of[k], all(triangular(times)));
      sum_.of[k] = hn::Add(sum_.of[k], hn::Add(growth, bends));
      slope_.of[k] = hn::Add(slope_.of[k], hn::Mul(values.of[k], all(times)));
    }
  }
  HWY_INLINE void letOut(Vector first, std::uint32_t radius) {
    const Channels values = channelsOf(first);
    for (int k = 0; k < channels; ++k)
      slope_.of[k] = hn::Sub(slope_.of[k], hn::Mul(values.of[k], all(radius)));
  }

  /// The mean around `centre`, with its alpha.
  HWY_INLINE Vector blurred(Vector centre, const Mean& mean) const {
    const Vector lower = hn::Or(mean(sum_.of[0]), hn::ShiftLeft<8>(mean(sum_.of[1])));
    const Vector upper = hn::Or(hn::ShiftLeft<16>(mean(sum_.of[2])), hn::And(centre, all(alphaByte)));
    return hn::Or(lower, upper);
  }
  /// Moves on by a pixel.
  HWY_INLINE void advance(Vector leaving, Vector centre, Vector entering) {
    bendBy(bendOf(leaving, centre, entering));
  }

 private:
  HWY_INLINE void bendBy(const Channels& bend) {
    for (int k = 0; k < channels; ++k) {
      slope_.of[k] = hn::Add(slope_.of[k], bend.of[k]);
      sum_.of[k] = hn::Add(sum_.of[k], slope_.of[k]);
    }
  }

  Channels sum_;
  Channels slope_;  // What the sum grew by with the last step.
};

}  // namespace
}  // namespace vistrel::stack_blur::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
#endif
