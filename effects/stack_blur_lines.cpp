#include "effects/stack_blur_lines.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace vistrel {
namespace {

constexpr std::size_t bytesPerPixel = 4;
constexpr int channels = 3;  // The bytes of a pixel that are blurred.
constexpr int bitsPerByte = 8;

// The weighted sum of one channel is at most 255 (r + 1)^2: 32 bits for radii that anyone looks at, 72 for
// the largest, 2^32 - 1.
using NarrowSum = std::uint32_t;
__extension__ using WideSum = unsigned __int128;
constexpr std::uint32_t maxNarrowRadius = (1u << 12) - 2;

/// Division of weighted sums by the sum of the weights, (r + 1)^2, rounding down to a byte.
template <class Sum>
class Mean {
 public:
  explicit Mean(std::uint32_t radius) : divisor_((Sum{radius} + 1) * (Sum{radius} + 1)) {}
  std::uint8_t operator()(Sum sum) const {
    unsigned quotient = 0;
    for (int bit = bitsPerByte - 1; bit >= 0; --bit) {
      if (sum < divisor_ << bit) continue;
      sum -= divisor_ << bit;
      quotient |= 1u << bit;
    }
    return std::uint8_t(quotient);
  }

 private:
  Sum divisor_;
};

/// Multiplies by a reciprocal, which is exact: see stack_blur::Division, of which this is the one with s
/// = 56.
template <>
class Mean<NarrowSum> {
 public:
  explicit Mean(std::uint32_t radius) {
    const std::uint64_t divisor = std::uint64_t{radius + 1} * (radius + 1);
    reciprocal_ = ((std::uint64_t{1} << shift) + divisor - 1) / divisor;
  }
  std::uint8_t operator()(NarrowSum sum) const { return std::uint8_t(sum * reciprocal_ >> shift); }

 private:
  static constexpr int shift = 56;
  std::uint64_t reciprocal_;
};

/// 1 + 2 + ... + n.
template <class Sum>
Sum triangular(Sum n) {
  return n % 2 == 0 ? n / 2 * (n + 1) : (n + 1) / 2 * n;
}

/// The window of one channel around the pixel that is at hand, at first pixel 0.
template <class Sum>
class Window {
 public:
  Window() = default;
  /// `channel` points to the channel's byte of pixel 0; the line has pixels up to `last`, `step` bytes apart.
  Window(const std::uint8_t* channel, std::size_t step, std::uint32_t last, std::uint32_t radius) {
    const Sum top = Sum{radius} + 1;  // The weight of the pixel at hand.
    const std::uint32_t inside = std::min(radius, last);
    const Sum beyond = radius - inside;  // Places past the end of the line, filled with its last pixel.
    trailing_ = top * channel[0];        // Pixel 0, and all the places before the line.
    weighted_ = triangular(top) * channel[0];
    for (std::uint32_t i = 1; i <= inside; ++i) {
      const Sum value = channel[i * step];
      leading_ += value;
      weighted_ += (top - i) * value;
    }
    leading_ += beyond * channel[last * step];
    weighted_ += triangular(beyond) * channel[last * step];
  }

  Sum weighted() const { return weighted_; }

  /// Moves on by a pixel, to `next`; `leaving` is the one that drops out behind, `entering` the one that
  /// comes in.
  void slide(std::uint8_t leaving, std::uint8_t next, std::uint8_t entering) {
    weighted_ -= trailing_;
    trailing_ += next;
    trailing_ -= leaving;
    leading_ += entering;
    weighted_ += leading_;
    leading_ -= next;
  }

 private:
  Sum weighted_ = 0;
  Sum trailing_ = 0;  // The pixel at hand and those behind it, unweighted.
  Sum leading_ = 0;   // Those ahead of it, unweighted.
};

/// Blurs one row or column in place: `count` pixels, `step` bytes apart. `original` is room for it.
template <class Sum>
void blurLine(std::uint8_t* line, std::size_t step, std::uint32_t count, std::uint32_t radius,
              const Mean<Sum>& mean, std::vector<std::uint8_t>& original) {
  original.resize(count * bytesPerPixel);
  for (std::uint32_t i = 0; i < count; ++i)
    std::copy_n(line + i * step, bytesPerPixel, original.data() + i * bytesPerPixel);

  const std::uint32_t last = count - 1;
  const auto at = [&](std::uint32_t i) { return original.data() + i * bytesPerPixel; };
  Window<Sum> windows[channels];
  for (int k = 0; k < channels; ++k) windows[k] = Window<Sum>(at(0) + k, bytesPerPixel, last, radius);
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint8_t* leaving = at(i > radius ? i - radius : 0);
    const std::uint8_t* next = at(std::min(i + 1, last));
    const std::uint8_t* entering = at(last - i > radius ? i + radius + 1 : last);
    for (int k = 0; k < channels; ++k) {
      line[i * step + std::size_t(k)] = mean(windows[k].weighted());
      windows[k].slide(leaving[k], next[k], entering[k]);
    }
  }
}

template <class Sum>
void blurBuffer(std::uint8_t* buffer, std::uint32_t width, std::uint32_t height, std::uint32_t radius) {
  const std::size_t bytesPerRow = width * bytesPerPixel;
  const Mean<Sum> mean(radius);
  std::vector<std::uint8_t> line;
  for (std::uint32_t y = 0; y < height; ++y)
    blurLine<Sum>(buffer + y * bytesPerRow, bytesPerPixel, width, radius, mean, line);
  for (std::uint32_t x = 0; x < width; ++x)
    blurLine<Sum>(buffer + x * bytesPerPixel, bytesPerRow, height, radius, mean, line);
}

}  // namespace

void blurInLines(std::uint8_t* buffer, std::uint32_t width, std::uint32_t height, std::uint32_t radius) {
  const auto blur = radius <= maxNarrowRadius ? blurBuffer<NarrowSum> : blurBuffer<WideSum>;
  blur(buffer, width, height, radius);
}

}  // namespace vistrel
