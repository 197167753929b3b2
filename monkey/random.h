#pragma once

#include <cstdint>
#include <iterator>
#include <random>

namespace monkey {

/// Random choices that a seed repeats, on every machine and with every compiler: the standard distributions
/// would not, nor would two choices as arguments of one call, whose order is the compiler's.
class Random {
 public:
  explicit Random(std::uint64_t seed) : engine_(seed) {}

  /// From 0 to `count` - 1; `count` is above 0.
  int below(int count) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(count)); }
  bool chance(int percent) { return below(100) < percent; }
  /// From `from` to `to`, in a thousand steps.
  float between(float from, float to) {
    constexpr int steps = 1000;
    return from + (to - from) * static_cast<float>(below(steps + 1)) / steps;
  }
  /// Of a list that is not empty.
  template <class List>
  const auto& oneOf(const List& list) {
    return std::begin(list)[below(static_cast<int>(std::size(list)))];
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace monkey
