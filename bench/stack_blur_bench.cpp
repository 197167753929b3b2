// The stack blur of a whole 640 x 960 screen, against the two ends of what there is to compare it with: its
// definition computed term by term, and a mere copy of the pixels. Both run beside it in every iteration, so
// that a busy machine slows all of them alike.

#include "effects/stack_blur.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

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
  Pixels rows(pixels.size());
  directPass(pixels, rows, width, bytesPerPixel, height, width * bytesPerPixel, radius);
  directPass(rows, pixels, height, width * bytesPerPixel, width, bytesPerPixel, radius);
}

template <class Work>
double secondsOf(Work work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  benchmark::ClobberMemory();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void stackBlur(benchmark::State& state) {
  const int radius = int(state.range(0));
  const Pixels original = noise();
  Pixels blurred = original;
  Pixels direct = original;
  double blurSeconds = 0;
  double directSeconds = 0;
  double copySeconds = 0;
  for (auto _ : state) {
    copySeconds += secondsOf([&] { std::memcpy(blurred.data(), original.data(), original.size()); });
    const double seconds = secondsOf(
        [&] { vistrel::applyStackBlurToBuffer(blurred.data(), width, height, std::uint32_t(radius)); });
    state.SetIterationTime(seconds);
    blurSeconds += seconds;
    std::memcpy(direct.data(), original.data(), original.size());
    directSeconds += secondsOf([&] { directBlur(direct, radius); });
    if (direct != blurred) {
      state.SkipWithError("the blur differs from its definition");
      break;
    }
  }
  state.counters["x_faster_than_direct"] = directSeconds / blurSeconds;
  state.counters["x_slower_than_copy"] = blurSeconds / copySeconds;
}
BENCHMARK(stackBlur)->Arg(2)->Arg(10)->Arg(50)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(0.05);

}  // namespace
