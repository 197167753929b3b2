#include "platform/quartzcore/picture_scaling.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <vector>

#include "platform/quartzcore/pixel_averages.h"

namespace {

/// How the lines of the result, across one axis, are made of those of the picture.
class Axis {
 public:
  /// `count` lines of the picture are stretched from `begin` to `end` over a result of `resultCount`.
  Axis(int count, double begin, double end, int resultCount) : count_(count) {
    const double step = count / (end - begin);  // Lines of the picture to one of the result.
    // Each line of the result is the mean over a box as wide as itself, whose edges are smoothed over one
    // line of the picture. With a box of a single line that is linear interpolation.
    constexpr double widest = 16;  // Lines of the picture. As coarse as that nobody sees what is left out.
    const double width = step * averagedBelow < 1 ? 1 : std::min(step, widest);
    const double reach = (width + 1) / 2;
    shares_.resize(static_cast<std::size_t>(std::ceil(2 * reach)) + 1);
    taps_ = std::min(static_cast<int>(shares_.size()), count);
    first_.resize(static_cast<std::size_t>(resultCount));
    weights_.resize(first_.size() * static_cast<std::size_t>(taps_));
    for (int i = 0; i < resultCount; ++i) {
      const double center = (i + 0.5 - begin) * step;
      const double coverage = std::min(i + 1.0, end) - std::max<double>(i, begin);
      setLine(i, center, reach, static_cast<float>(std::clamp(coverage, 0.0, 1.0)));
    }
  }

  int taps() const { return taps_; }
  int first(int i) const { return first_[static_cast<std::size_t>(i)]; }
  /// Of as many lines as there are taps, the first and those after it. They add up to 65536, or to less
  /// where the stretched picture does not cover all of the line.
  const std::uint16_t* weights(int i) const { return weights_.data() + std::ptrdiff_t{i} * taps_; }

 private:
  /// The whole number below; a function call less than the library's way.
  static int below(double value) {
    const int whole = static_cast<int>(value);
    return whole > value ? whole - 1 : whole;
  }

  void setLine(int i, double center, double reach, float coverage) {
    const int low = below(center - reach);
    const int first = first_[static_cast<std::size_t>(i)] = std::clamp(low, 0, count_ - taps_);
    float distance = static_cast<float>(low + 0.5 - center), sum = 0;
    for (float& share : shares_) {
      share = std::clamp(static_cast<float>(reach) - std::abs(distance), 0.0f, 1.0f);
      sum += share;
      distance += 1;
    }
    std::uint16_t* weights = weights_.data() + std::ptrdiff_t{i} * taps_;
    const float factor = coverage * whole / sum;
    const int lines = static_cast<int>(shares_.size()), shift = low - first;
    for (int k = 0; k < lines; ++k) {
      // The lines at the edges repeat outside.
      const int tap = std::clamp(k + shift, 0, taps_ - 1);
      const int weight =
          weights[tap] + static_cast<int>(shares_[static_cast<std::size_t>(k)] * factor + 0.5f);
      weights[tap] = static_cast<std::uint16_t>(std::min(weight, mostWeight));
    }
  }

  static constexpr float whole = 65536;
  static constexpr int mostWeight = std::numeric_limits<std::uint16_t>::max();
  int count_, taps_;
  std::vector<float> shares_;  // Of the lines around the one at hand; here so as to be allocated once.
  std::vector<int> first_;     // Lines of the picture.
  std::vector<std::uint16_t> weights_;
};

/// Pixels in rows, whole vectors long, of which the last one may hold anything.
class Rows {
 public:
  Rows(int width, int height)
      : width((width + vector - 1) / vector * vector),
        pixels_(std::make_unique_for_overwrite<Pixel[]>(static_cast<std::size_t>(this->width) *
                                                        static_cast<std::size_t>(height))) {}
  Pixel* row(int y) const { return pixels_.get() + std::ptrdiff_t{y} * width; }

  const int width;

 private:
  static constexpr int vector = 16;  // Pixels; the longest there are.
  std::unique_ptr<Pixel[]> pixels_;
};

/// Makes `height` rows of those that row(i) begins.
template <class Row>
void average(const Axis& down, int width, int height, bool opaque, Row row, const Rows& result) {
  std::vector<const Pixel*> rows(static_cast<std::size_t>(down.taps()));
  for (int y = 0; y < height; ++y) {
    for (int tap = 0; tap < down.taps(); ++tap)
      rows[static_cast<std::size_t>(tap)] = row(down.first(y) + tap);
    averageRows(result.row(y), rows.data(), down.weights(y), down.taps(), width, opaque);
  }
}

}  // namespace

void scalePicture(const CGImage& picture, const DeviceBox& place, Pixel* result, int width, int height) {
  const Axis across(picture.width(), place.left, place.right, width);
  const Axis down(picture.height(), place.top, place.bottom, height);
  const auto pictureRow = [&](int y) { return reinterpret_cast<const Pixel*>(picture.row(y)); };
  const Rows low(picture.width(), height), columns(height, picture.width()), narrow(height, width);
  average(down, picture.width(), height, picture.isOpaque(), pictureRow, low);
  transposePixels(low.row(0), low.width, picture.width(), height, columns.row(0), columns.width);
  average(
      across, columns.width, width, false, [&](int x) { return columns.row(x); }, narrow);
  transposePixels(narrow.row(0), narrow.width, height, width, result, width);
}
