#pragma once

#include <stdexcept>

namespace monkey {

/// Something that must always hold does not: what() says which, the same words each time.
class Broken : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace monkey
