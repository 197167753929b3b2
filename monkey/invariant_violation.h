#pragma once

#include <stdexcept>

namespace monkey {

/// Something that must always hold does not: what() is the statement, in the same words each time.
class InvariantViolation : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace monkey
