#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

/// The stack blur as it is defined: each weighted mean by itself, whatever it costs.
namespace blur_definition {

using Bytes = std::vector<std::uint8_t>;
__extension__ using Uint128 = unsigned __int128;

/// The weighted mean around one pixel; each edge pixel stands for all places from it on.
inline std::uint8_t mean(const Bytes& line, std::int64_t at, std::int64_t radius) {
  const auto weightFrom = [=](std::int64_t distance) {
    const auto places = Uint128(std::max<std::int64_t>(radius + 1 - distance, 0));
    return places * (places + 1) / 2;
  };
  const std::int64_t last = std::ssize(line) - 1;
  if (last == 0) return line[0];
  Uint128 sum = weightFrom(at) * line.front() + weightFrom(last - at) * line.back();
  for (std::int64_t i = 1; i < last; ++i) {
    sum += Uint128(std::max<std::int64_t>(radius + 1 - std::abs(at - i), 0)) * line[std::size_t(i)];
  }
  return std::uint8_t(sum / ((Uint128(radius) + 1) * (Uint128(radius) + 1)));
}

/// What has to come of `pixels`, 4 bytes each in rows of exactly `width`.
inline Bytes blurred(Bytes pixels, int width, int height, std::uint32_t radius) {
  const auto blurLine = [&](std::size_t first, std::size_t step, int count) {
    Bytes line;
    for (int i = 0; i < count; ++i) line.push_back(pixels[first + std::size_t(i) * step]);
    for (int i = 0; i < count; ++i) pixels[first + std::size_t(i) * step] = mean(line, i, radius);
  };
  const std::size_t row = std::size_t(width) * 4;
  for (std::size_t channel = 0; channel < 3; ++channel) {
    for (int y = 0; y < height; ++y) blurLine(std::size_t(y) * row + channel, 4, width);
    for (int x = 0; x < width; ++x) blurLine(std::size_t(x) * 4 + channel, row, height);
  }
  return pixels;
}

}  // namespace blur_definition
