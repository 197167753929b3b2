#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "host/web/listen_address.h"

namespace host {

struct ServeOptions {
  ListenAddress address;
  std::optional<std::string> token;  ///< Nothing: everybody who reaches the address gets in.
  std::filesystem::path page;        ///< The folder of the page's files.
};

}  // namespace host
