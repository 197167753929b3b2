#include "platform/quartzcore/picture_scaling.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace {

constexpr int channels = 4;
constexpr std::size_t alphaByte = 3;

/// How the pixels of the result, along one axis, are made of those of the picture.
class Axis {
 public:
  /// `count` pixels of the picture are stretched from `begin` to `end` over a result of `resultCount`.
  Axis(int count, double begin, double end, int resultCount) {
    const double step = count / (end - begin);  // Pixels of the picture to one of the result.
    // A box as wide as a pixel of the result, smoothed by one of the picture, is linear at a width of 1.
    constexpr double widest = 16;
    const double width = step * averagedBelow < 1 ? 1 : std::min(step, widest);
    const double reach = (width + 1) / 2;
    taps_ = std::min(static_cast<int>(std::ceil(2 * reach)) + 1, count);
    samples_.resize(static_cast<std::size_t>(resultCount));
    weights_.resize(samples_.size() * static_cast<std::size_t>(taps_));
    for (int i = 0; i < resultCount; ++i) {
      Sample& sample = samples_[static_cast<std::size_t>(i)];
      sample.coverage =
          static_cast<float>(std::clamp(std::min(i + 1.0, end) - std::max<double>(i, begin), 0.0, 1.0));
      const double center = (i + 0.5 - begin) * step;
      const int low = static_cast<int>(std::floor(center - reach));
      sample.first = std::clamp(low, 0, count - taps_);
      float* weights = weights_.data() + static_cast<std::ptrdiff_t>(i) * taps_;
      double sum = 0;
      for (int tap = low; tap <= low + static_cast<int>(std::ceil(2 * reach)); ++tap) {
        const double weight = std::clamp(reach - std::abs(tap + 0.5 - center), 0.0, 1.0);
        // The pixels at the edges repeat outside.
        weights[std::clamp(tap, sample.first, sample.first + taps_ - 1) - sample.first] +=
            static_cast<float>(weight);
        sum += weight;
      }
      for (int tap = 0; tap < taps_; ++tap) weights[tap] /= static_cast<float>(sum);
    }
  }

  int taps() const { return taps_; }
  int first(int i) const { return samples_[static_cast<std::size_t>(i)].first; }
  float coverage(int i) const { return samples_[static_cast<std::size_t>(i)].coverage; }
  const float* weights(int i) const { return weights_.data() + static_cast<std::ptrdiff_t>(i) * taps_; }

 private:
  struct Sample {
    int first;       // Of the picture's pixels.
    float coverage;  // By the stretched picture.
  };
  int taps_;
  std::vector<Sample> samples_;
  std::vector<float> weights_;
};

constexpr int weightBits = 8;

/// sum += row * weight
void addWeighted(std::uint16_t* sum, const std::uint8_t* row, std::uint16_t weight, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) sum[i] = static_cast<std::uint16_t>(sum[i] + row[i] * weight);
}

void toFloats(const std::uint16_t* values, float factor, float* floats, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) floats[i] = static_cast<float>(values[i]) * factor;
}

/// The channels of a pixel, computed with at a time.
using Channels [[gnu::vector_size(channels * sizeof(float))]] = float;

Channels load(const float* pixel) {
  Channels result;
  std::memcpy(&result, pixel, sizeof result);
  return result;
}

/// One pixel out of `taps` neighbouring ones.
Channels weightedSum(const float* pixels, const float* weights, int taps) {
  Channels sum{};
  for (int tap = 0; tap < taps; ++tap) sum += load(pixels + tap * channels) * weights[tap];
  return sum;
}

void toBytes(const float* values, std::uint8_t* bytes, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i)
    bytes[i] = static_cast<std::uint8_t>(static_cast<int>(values[i] + 0.5f));
}

/// Weights in whole parts of 2^weightBits, which they add up to.
void toParts(const float* weights, std::vector<std::uint16_t>& parts) {
  constexpr int whole = 1 << weightBits;
  int sum = 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    parts[i] = static_cast<std::uint16_t>(std::lround(weights[i] * whole));
    sum += parts[i];
  }
  auto& largest = *std::ranges::max_element(parts);
  largest = static_cast<std::uint16_t>(largest + whole - sum);
}

}  // namespace

void scalePicture(const CGImage& picture, const DeviceBox& place, std::uint8_t* result, int width,
                  int height) {
  const Axis across(picture.width(), place.left, place.right, width);
  const Axis down(picture.height(), place.top, place.bottom, height);
  const std::size_t sourceCount = static_cast<std::size_t>(picture.width()) * channels;
  const std::size_t resultCount = static_cast<std::size_t>(width) * channels;
  const bool opaque = picture.isOpaque();
  std::vector<std::uint16_t> parts(static_cast<std::size_t>(down.taps())), sum(sourceCount);
  std::vector<float> narrow(sourceCount), wide(resultCount);
  for (int y = 0; y < height; ++y, result += resultCount) {
    if (!(down.coverage(y) > 0)) continue;  // Transparent, as it came.
    toParts(down.weights(y), parts);
    std::ranges::fill(sum, std::uint16_t{0});
    for (int tap = 0; tap < down.taps(); ++tap)
      addWeighted(sum.data(), picture.row(down.first(y) + tap), parts[static_cast<std::size_t>(tap)],
                  sourceCount);
    toFloats(sum.data(), 1.0f / (1 << weightBits), narrow.data(), sourceCount);
    for (int x = 0; x < width; ++x) {
      const float* first = narrow.data() + static_cast<std::ptrdiff_t>(across.first(x)) * channels;
      Channels pixel = weightedSum(first, across.weights(x), across.taps());
      if (opaque) pixel[alphaByte] = 255;
      pixel *= across.coverage(x) * down.coverage(y);
      std::memcpy(wide.data() + static_cast<std::ptrdiff_t>(x) * channels, &pixel, sizeof pixel);
    }
    toBytes(wide.data(), result, resultCount);
  }
}
