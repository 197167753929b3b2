#pragma once

#include <cstddef>
#include <cstdint>

/// How many standard deviations away a Gaussian is taken as zero: what is left there is less than half of an
/// 8-bit step. Internal to the renderer, as is the whole header.
inline constexpr double gaussianReach = 3;

/// The largest standard deviation, in pixels. Hardly anything can be told apart in a picture blurred like
/// that.
inline constexpr double maxBlurSigma = 64;

/// Blurs premultiplied 32-bit pixels in place by a Gaussian whose standard deviations are `sigmaX` and
/// `sigmaY` pixels, 0 to maxBlurSigma. The pixels at the edges repeat outside.
/// Values are off by little more than the half step of their rounding. A picture of one colour stays what it
/// is, and premultiplied pixels stay premultiplied.
void blurGaussian(std::uint8_t* pixels, int width, int height, std::size_t bytesPerRow, double sigmaX,
                  double sigmaY);
