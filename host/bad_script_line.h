#pragma once

#include <stdexcept>

namespace host {

/// A script line that cannot be understood; the text is the cause, in one line.
class BadScriptLine : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace host
