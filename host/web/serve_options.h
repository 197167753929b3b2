#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "host/web/listen_address.h"

namespace host {

/// How a device is to be served.
struct ServeOptions {
  ListenAddress address;
  std::optional<std::string> token;  ///< Nothing: everybody who reaches the address gets in.
  std::filesystem::path page;        ///< The folder of the page's files, where the build has it.
};

}  // namespace host
