#pragma once

#include <string>
#include <string_view>

namespace host {

/// What a request asks for, "/icons/x?token=y", in its parts.
struct RequestTarget {
  explicit RequestTarget(std::string_view text);

  std::string path;        ///< With its %XX read; a '%' that begins none stands for itself.
  std::string_view token;  ///< A view of the text; empty where there is none.
};

}  // namespace host
