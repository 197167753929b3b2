#include "platform/quartzcore/gaussian_blur.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>
#include <vector>

namespace {

constexpr int channels = 4, alpha = 3;
constexpr std::uint8_t between = 0x5A;  // What the bytes between rows hold.
constexpr double mostError = 0.6;       // Half a step from the last rounding, the rest from those before.

using Bytes = std::vector<std::uint8_t>;
struct Picture {
  int width, height, padding;
  int bytesPerRow() const { return width * channels + padding; }
  /// value(most) gives the alphas, at most 255, and then the colours, at most their alpha.
  Bytes bytes(const std::function<unsigned(unsigned most)>& value) const {
    Bytes bytes(std::size_t(bytesPerRow() * height), between);
    for (int i = 0; i < width * height; ++i) {
      std::uint8_t* pixel = &bytes[std::size_t(i / width * bytesPerRow() + i % width * channels)];
      pixel[alpha] = std::uint8_t(value(255));
      for (int k = 0; k < alpha; ++k) pixel[k] = std::uint8_t(value(pixel[alpha]));
    }
    return bytes;
  }
};

/// Blurs `count` values, `step` apart, as the definition has it.
void blurLine(double* values, int count, int step, double sigma) {
  const int reach = int(std::ceil(sigma * gaussianReach));
  std::vector<double> blurred(std::size_t(count), 0);
  double weights = 0;
  for (int k = -reach; k <= reach; ++k) {
    const double weight = k == 0 ? 1 : std::exp(-0.5 * k * k / (sigma * sigma));
    for (int i = 0; i < count; ++i)
      blurred[std::size_t(i)] += weight * values[std::clamp(i + k, 0, count - 1) * step];
    weights += weight;
  }
  for (int i = 0; i < count; ++i) values[i * step] = blurred[std::size_t(i)] / weights;
}

}  // namespace

TEST(GaussianBlur, IsWithinAStepOfTheDefinition) {
  constexpr double sigmas[][2] = {{0, 0}, {0.01, 0.3}, {0, 2.5}, {1, 0}, {2.5, 1}, {1.5, 8}, {64, 64}};
  std::mt19937 random(5);
  const auto any = [&](unsigned most) { return unsigned(random() % (most + 1)); };
  const auto noneOrMost = [&](unsigned most) { return any(1) * most; };
  for (const Picture picture : {Picture{1, 1, 4}, {1, 9, 0}, {9, 1, 8}, {17, 5, 0}, {40, 33, 12}}) {
    const int perRow = picture.bytesPerRow(), inRow = picture.width * channels;
    for (const auto [x, y] : sigmas) {
      SCOPED_TRACE(testing::Message() << picture.width << 'x' << picture.height << ' ' << x << ' ' << y);
      const auto blurred = [&, x = x, y = y](Bytes bytes) {
        blurGaussian(bytes.data(), picture.width, picture.height, std::size_t(perRow), x, y);
        return bytes;
      };
      for (const Bytes& bytes : {picture.bytes(any), picture.bytes(noneOrMost)}) {
        std::vector<double> exact(bytes.begin(), bytes.end());
        for (int i = 0; i < picture.height * channels; ++i)
          blurLine(&exact[std::size_t(i / channels * perRow + i % channels)], picture.width, channels, x);
        for (int i = 0; i < inRow; ++i) blurLine(&exact[std::size_t(i)], picture.height, perRow, y);
        const Bytes result = blurred(bytes);
        for (std::size_t i = 0; i < bytes.size(); ++i) {
          ASSERT_NEAR(result[i], exact[i], mostError) << i;
          ASSERT_LE(result[i], result[i / channels * channels + alpha]) << i;
        }
      }
      for (unsigned value = 0; value < 256; ++value) {
        const Bytes flat = picture.bytes([=](unsigned) { return value; });
        ASSERT_EQ(blurred(flat), flat);
      }
    }
  }
}
