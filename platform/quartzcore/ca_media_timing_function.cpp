#include "platform/quartzcore/ca_media_timing_function.h"

#include <cmath>

namespace {

/// One coordinate of the curve at parameter `t`, its end points being 0 and 1.
double bezier(double t, double c1, double c2) {
  const double u = 1 - t;
  return 3 * u * u * t * c1 + 3 * u * t * t * c2 + t * t * t;
}

double bezierSlope(double t, double c1, double c2) {
  const double u = 1 - t;
  return 3 * u * u * c1 + 6 * u * t * (c2 - c1) + 3 * t * t * (1 - c2);
}

/// The parameter at which the curve's x is `x`. Newton's steps, halving the bracket wherever one would leave
/// it.
double parameterAt(double x, double c1, double c2) {
  constexpr int maxSteps = 60;
  constexpr double tolerance = 1e-15;
  double low = 0, high = 1, t = x;
  for (int step = 0; step < maxSteps; ++step) {
    const double error = bezier(t, c1, c2) - x;
    if (std::abs(error) < tolerance) break;
    (error < 0 ? low : high) = t;
    const double newton = t - error / bezierSlope(t, c1, c2);
    const bool staysInside = newton > low && newton < high;  // False for a step over a flat place, too.
    t = staysInside ? newton : (low + high) / 2;
  }
  return t;
}

}  // namespace

float CAMediaTimingFunction::progressAt(float time) const {
  if (!(time > 0)) return 0;
  if (time >= 1) return 1;
  return static_cast<float>(bezier(parameterAt(time, c1x_, c2x_), c1y_, c2y_));
}
