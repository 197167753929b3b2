#pragma once

#include <string>
#include <vector>

#include "bench/figure.h"

namespace bench {

/// What is known of a row before it is measured.
struct Row {
  std::string name, reference;
  Bound bound;
  bool isCount;
};

/// In the order in which they were added.
const std::vector<Row>& rows();

/// Names of what a measurement leaves in Google Benchmark's results.
inline constexpr const char* ratioCounter = "ratio";
inline constexpr const char* measuredCounter = "measured_s";
inline constexpr const char* referenceCounter = "reference_s";

}  // namespace bench
