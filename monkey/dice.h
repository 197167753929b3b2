#pragma once

#include <cstdint>
#include <iterator>
#include <random>

namespace monkey {

/// Random choices that a seed repeats, on every machine alike: the library's distributions would not.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : engine_(seed) {}

  /// From 0 to `count` - 1.
  int below(int count) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(count)); }
  bool chance(int percent) { return below(100) < percent; }
  /// From `from` to `to`, in a thousand steps.
  float between(float from, float to) {
    constexpr int steps = 1000;
    return from + (to - from) * static_cast<float>(below(steps + 1)) / steps;
  }
  template <class List>
  const auto& oneOf(const List& list) {
    return std::begin(list)[below(static_cast<int>(std::size(list)))];
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace monkey
