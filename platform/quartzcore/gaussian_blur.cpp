#include "platform/quartzcore/gaussian_blur.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr int channels = 4;

/// The centre's weight first, then those of the neighbours on one side. All of them, both sides, add up to 1.
std::vector<float> gaussianWeights(double sigma) {
  if (!(sigma > 0)) return {1};
  const int reach = static_cast<int>(std::ceil(sigma * gaussianReach));
  std::vector<double> exact;
  double sum = 0;
  for (int i = 0; i <= reach; ++i) {
    exact.push_back(std::exp(-0.5 * i * i / (sigma * sigma)));
    sum += i == 0 ? exact[0] : 2 * exact.back();
  }
  std::vector<float> weights;
  for (double weight : exact) weights.push_back(static_cast<float>(weight / sum));
  return weights;
}

/// sum = centre * weight
void startSum(float* sum, const float* centre, float weight, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) sum[i] = centre[i] * weight;
}

/// sum += (before + after) * weight
void addPair(float* sum, const float* before, const float* after, float weight, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) sum[i] += (before[i] + after[i]) * weight;
}

/// Rows that have been blurred along themselves, as many as one blur across them needs at a time.
class RowRing {
 public:
  RowRing(std::size_t rows, std::size_t valuesPerRow)
      : rows_(rows), valuesPerRow_(valuesPerRow), values_(rows * valuesPerRow) {}
  float* row(int y) { return values_.data() + (static_cast<std::size_t>(y) % rows_) * valuesPerRow_; }

 private:
  std::size_t rows_, valuesPerRow_;
  std::vector<float> values_;
};

}  // namespace

void blurGaussian(std::uint8_t* pixels, int width, int height, std::size_t bytesPerRow, double sigmaX,
                  double sigmaY) {
  if (width <= 0 || height <= 0) return;
  const auto weightsX = gaussianWeights(sigmaX), weightsY = gaussianWeights(sigmaY);
  const std::size_t reachX = weightsX.size() - 1;
  const int reachY = static_cast<int>(weightsY.size()) - 1;
  const std::size_t count = static_cast<std::size_t>(width) * channels;

  std::vector<float> padded(count + 2 * reachX * channels);  // One row with its ends repeated.
  float* const source = padded.data() + reachX * channels;
  RowRing ring(weightsY.size() * 2, count);
  std::vector<float> sum(count);

  auto blurAlong = [&](int y) {
    std::copy_n(pixels + static_cast<std::size_t>(y) * bytesPerRow, count, source);
    for (std::size_t i = 0; i < reachX * channels; ++i) {
      padded[i] = source[i % channels];
      source[count + i] = source[count - channels + i % channels];
    }
    float* target = ring.row(y);
    startSum(target, source, weightsX[0], count);
    for (std::size_t i = 1; i <= reachX; ++i)
      addPair(target, source - i * channels, source + i * channels, weightsX[i], count);
  };
  auto blurredRow = [&](int y) { return ring.row(std::clamp(y, 0, height - 1)); };

  // Row y is written only after every row up to y + reachY has been read.
  for (int y = 0; y < std::min(reachY, height); ++y) blurAlong(y);
  for (int y = 0; y < height; ++y) {
    if (y + reachY < height) blurAlong(y + reachY);
    startSum(sum.data(), blurredRow(y), weightsY[0], count);
    for (int i = 1; i <= reachY; ++i)
      addPair(sum.data(), blurredRow(y - i), blurredRow(y + i), weightsY[i], count);
    std::uint8_t* target = pixels + static_cast<std::size_t>(y) * bytesPerRow;
    for (std::size_t i = 0; i < count; ++i)
      target[i] = static_cast<std::uint8_t>(static_cast<int>(sum[i] + 0.5f));
  }
}
