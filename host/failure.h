#pragma once

#include <stdexcept>

namespace host {

/// Something the user asked for cannot be done: the text is one line that names the thing and the cause.
class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The cause where what was thrown is no exception of the standard kind, which only libraries throw.
inline constexpr const char* unknownFault = "an add-on library has thrown something unknown";

}  // namespace host
