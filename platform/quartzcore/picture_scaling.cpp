#include "platform/quartzcore/picture_scaling.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "platform/quartzcore/pixel_averages.h"

namespace {

/// How the lines of the result, across one axis, are made of those of the picture.
class Axis {
 public:
  /// `count` lines of the picture are stretched from `begin` to `end` over a result of `resultCount`.
  Axis(int count, double begin, double end, int resultCount) {
    const double step = count / (end - begin);  // Lines of the picture to one of the result.
    // A box as wide as a line of the result, smoothed by one of the picture, is linear at a width of 1.
    constexpr double widest = 16;
    const double width = step * averagedBelow < 1 ? 1 : std::min(step, widest);
    const double reach = (width + 1) / 2;
    const int reached = static_cast<int>(std::ceil(2 * reach)) + 1;
    taps_ = std::min(reached, count);
    first_.resize(static_cast<std::size_t>(resultCount));
    weights_.resize(first_.size() * static_cast<std::size_t>(taps_));
    std::vector<float> shares(static_cast<std::size_t>(taps_));
    for (int i = 0; i < resultCount; ++i) {
      const double center = (i + 0.5 - begin) * step;
      const int low = static_cast<int>(std::floor(center - reach));
      const int first = std::clamp(low, 0, count - taps_);
      std::ranges::fill(shares, 0.0f);
      double sum = 0;
      for (int line = low; line < low + reached; ++line) {
        const double share = std::clamp(reach - std::abs(line + 0.5 - center), 0.0, 1.0);
        // The lines at the edges repeat outside.
        const int tap = std::clamp(line - first, 0, taps_ - 1);
        shares[static_cast<std::size_t>(tap)] += static_cast<float>(share);
        sum += share;
      }
      const double coverage = std::min(i + 1.0, end) - std::max<double>(i, begin);
      setLine(i, first, shares, std::clamp(coverage, 0.0, 1.0) / sum);
    }
  }

  int taps() const { return taps_; }
  int first(int i) const { return first_[static_cast<std::size_t>(i)]; }
  /// Of as many lines as there are taps, the first and those after it. They add up to 65536, or to less
  /// where the stretched picture does not cover all of the line.
  const std::uint16_t* weights(int i) const { return weights_.data() + std::ptrdiff_t{i} * taps_; }

 private:
  void setLine(int i, int first, const std::vector<float>& shares, double wholeShare) {
    constexpr int whole = 1 << 16, most = std::numeric_limits<std::uint16_t>::max();
    first_[static_cast<std::size_t>(i)] = first;
    std::uint16_t* weights = weights_.data() + std::ptrdiff_t{i} * taps_;
    const auto factor = static_cast<float>(wholeShare * whole);
    for (const float share : shares)
      *weights++ = static_cast<std::uint16_t>(std::min(static_cast<int>(share * factor + 0.5f), most));
  }

  int taps_;
  std::vector<int> first_;  // Lines of the picture.
  std::vector<std::uint16_t> weights_;
};

/// Makes rows `width` wide of those that `row(i)` begins.
template <class Row>
std::vector<Pixel> averaged(const Axis& down, int width, int height, bool opaque, Row row) {
  std::vector<Pixel> result(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  std::vector<const Pixel*> rows(static_cast<std::size_t>(down.taps()));
  for (int y = 0; y < height; ++y) {
    for (int tap = 0; tap < down.taps(); ++tap)
      rows[static_cast<std::size_t>(tap)] = row(down.first(y) + tap);
    averageRows(result.data() + std::ptrdiff_t{y} * width, rows.data(), down.weights(y), down.taps(), width,
                opaque);
  }
  return result;
}

}  // namespace

void scalePicture(const CGImage& picture, const DeviceBox& place, Pixel* result, int width, int height) {
  const Axis across(picture.width(), place.left, place.right, width);
  const Axis down(picture.height(), place.top, place.bottom, height);
  const auto low = averaged(down, picture.width(), height, picture.isOpaque(),
                            [&](int y) { return reinterpret_cast<const Pixel*>(picture.row(y)); });
  std::vector<Pixel> columns(low.size());
  transposePixels(low.data(), picture.width(), height, columns.data());
  const auto narrow = averaged(across, height, width, false,
                               [&](int x) { return columns.data() + std::ptrdiff_t{x} * height; });
  transposePixels(narrow.data(), height, width, result);
}
