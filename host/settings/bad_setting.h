#pragma once

#include <stdexcept>

namespace host {

/// A setting that no pane has, or a value that its control cannot hold. The text is one line that names
/// domain, key and cause.
class BadSetting : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace host
