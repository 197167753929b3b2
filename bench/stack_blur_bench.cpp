// The stack blur of a whole screen, between what it could cost and what it cannot go below: its definition
// computed term by term, and mere copies of the pixels.

#include "effects/stack_blur.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <stdexcept>

#include "bench/figure.h"

namespace bench {
namespace {

constexpr int width = 640;
constexpr int height = 960;
constexpr int bytesPerPixel = 4;
constexpr int channels = 3;

using Pixels = std::vector<std::uint8_t>;

Pixels noise() {
  Pixels pixels(std::size_t{width} * height * bytesPerPixel);
  std::mt19937 random(1);
  std::generate(pixels.begin(), pixels.end(), [&] { return std::uint8_t(random()); });
  return pixels;
}

/// One pass by the definition: `count` pixels a line, `step` bytes apart, in `lines` lines, `lineStep` bytes
/// apart.
void directPass(const Pixels& from, Pixels& to, int count, int step, int lines, int lineStep, int radius) {
  const int divisor = (radius + 1) * (radius + 1);
  for (int line = 0; line < lines; ++line) {
    const std::uint8_t* source = from.data() + std::size_t(line) * std::size_t(lineStep);
    std::uint8_t* target = to.data() + std::size_t(line) * std::size_t(lineStep);
    for (int at = 0; at < count; ++at) {
      int sums[channels] = {};
      for (int i = -radius; i <= radius; ++i) {
        const std::uint8_t* pixel = source + std::clamp(at + i, 0, count - 1) * step;
        const int weight = radius + 1 - std::abs(i);
        for (int k = 0; k < channels; ++k) sums[k] += weight * pixel[k];
      }
      for (int k = 0; k < channels; ++k) target[at * step + k] = std::uint8_t(sums[k] / divisor);
    }
  }
}

void directBlur(Pixels& pixels, int radius) {
  Pixels rows = pixels;
  directPass(pixels, rows, width, bytesPerPixel, height, width * bytesPerPixel, radius);
  directPass(rows, pixels, height, width * bytesPerPixel, width, bytesPerPixel, radius);
}

void blur(Pixels& pixels, int radius) {
  vistrel::applyStackBlurToBuffer(pixels.data(), width, height, std::uint32_t(radius));
}

/// A work on a picture that begins as noise each time.
template <class Work>
std::function<double()> onNoise(Work work) {
  auto original = std::make_shared<Pixels>(noise()), pixels = std::make_shared<Pixels>(*original);
  return [=] {
    *pixels = *original;
    return secondsOf([&] { work(*pixels); });
  };
}

std::function<double()> blurring(int radius) {
  return onNoise([=](Pixels& pixels) { blur(pixels, radius); });
}

Works besideDefinition(int radius) {
  Pixels fast = noise(), direct = fast;
  blur(fast, radius);
  directBlur(direct, radius);
  if (fast != direct) throw std::logic_error("the blur differs from its definition");
  return {blurring(radius), onNoise([=](Pixels& pixels) { directBlur(pixels, radius); })};
}

Works besideCopies(int radius) {
  auto copy = std::make_shared<Pixels>(noise());
  return {blurring(radius), onNoise([=](Pixels& pixels) {
            std::memcpy(copy->data(), pixels.data(), pixels.size());
            std::memcpy(pixels.data(), copy->data(), pixels.size());
          })};
}

}  // namespace

void addStackBlurFigures() {
  addFigure("stack-blur/radius-10/direct", "its definition, term by term", atLeast(8),
            [] { return besideDefinition(10); });
  addFigure("stack-blur/radius-10/copies", "two memcpys of the picture", atMost(6),
            [] { return besideCopies(10); });
  addFigure("stack-blur/radius-200", "radius 2", atMost(1.15), [] {
    return Works{blurring(200), blurring(2)};
  });
}

}  // namespace bench
