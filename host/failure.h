#pragma once

#include <stdexcept>

namespace host {

/// Something the user asked for cannot be done: the text is one line that names the thing and the cause.
class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace host
