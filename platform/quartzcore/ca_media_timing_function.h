#pragma once

/// How an animation's progress follows its time: a cubic Bezier from (0, 0) to (1, 1).
class CAMediaTimingFunction {
 public:
  constexpr CAMediaTimingFunction(float c1x, float c1y, float c2x, float c2y)
      : c1x_(c1x), c1y_(c1y), c2x_(c2x), c2y_(c2y) {}

  /// The default curve.
  static constexpr CAMediaTimingFunction easeInEaseOut() { return {0.42f, 0, 0.58f, 1}; }
  static constexpr CAMediaTimingFunction easeIn() { return {0.42f, 0, 1, 1}; }
  static constexpr CAMediaTimingFunction easeOut() { return {0, 0, 0.58f, 1}; }
  static constexpr CAMediaTimingFunction linear() { return {0, 0, 1, 1}; }

  /// Progress (0 to 1) at `time`, the elapsed part of the duration, which is clamped to 0 to 1.
  float progressAt(float time) const;

 private:
  float c1x_, c1y_, c2x_, c2y_;
};
