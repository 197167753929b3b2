#include "effects/stack_blur_lines.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace vistrel {
namespace {

constexpr std::size_t bytesPerPixel = 4;
constexpr int channels = 3;  // The bytes of a pixel that are blurred.
constexpr int bitsPerByte = 8;

// The weighted sum of one channel is at most 255 (r + 1)^2: 72 bits for the largest radius, 2^32 - 1.
__extension__ using Sum = unsigned __int128;

/// sum / divisor, rounded down, which is known to be a byte.
std::uint8_t mean(Sum sum, Sum divisor) {
  unsigned quotient = 0;
  for (int bit = bitsPerByte - 1; bit >= 0; --bit) {
    if (sum < divisor << bit) continue;
    sum -= divisor << bit;
    quotient |= 1u << bit;
  }
  return std::uint8_t(quotient);
}

/// 1 + 2 + ... + n.
Sum triangular(Sum n) { return n % 2 == 0 ? n / 2 * (n + 1) : (n + 1) / 2 * n; }

/// The window of one channel around the pixel that is at hand, at first pixel 0.
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
void blurLine(std::uint8_t* line, std::size_t step, std::uint32_t count, std::uint32_t radius,
              std::vector<std::uint8_t>& original) {
  original.resize(count * bytesPerPixel);
  for (std::uint32_t i = 0; i < count; ++i)
    std::copy_n(line + i * step, bytesPerPixel, original.data() + i * bytesPerPixel);

  const std::uint32_t last = count - 1;
  const Sum divisor = (Sum{radius} + 1) * (Sum{radius} + 1);
  const auto at = [&](std::uint32_t i) { return original.data() + i * bytesPerPixel; };
  Window windows[channels];
  for (int k = 0; k < channels; ++k) windows[k] = Window(at(0) + k, bytesPerPixel, last, radius);
  for (std::uint32_t i = 0; i < count; ++i) {
    const std::uint8_t* leaving = at(i > radius ? i - radius : 0);
    const std::uint8_t* next = at(std::min(i + 1, last));
    const std::uint8_t* entering = at(last - i > radius ? i + radius + 1 : last);
    for (int k = 0; k < channels; ++k) {
      line[i * step + std::size_t(k)] = mean(windows[k].weighted(), divisor);
      windows[k].slide(leaving[k], next[k], entering[k]);
    }
  }
}

}  // namespace

void blurInLines(std::uint8_t* buffer, std::uint32_t width, std::uint32_t height, std::uint32_t radius) {
  const std::size_t bytesPerRow = width * bytesPerPixel;
  std::vector<std::uint8_t> line;
  for (std::uint32_t y = 0; y < height; ++y)
    blurLine(buffer + y * bytesPerRow, bytesPerPixel, width, radius, line);
  for (std::uint32_t x = 0; x < width; ++x)
    blurLine(buffer + x * bytesPerPixel, bytesPerRow, height, radius, line);
}

}  // namespace vistrel
