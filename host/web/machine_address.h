#pragma once

#include <optional>
#include <string>

namespace host {

/// An IPv4 address under which other machines find this one; nothing for a machine on its own.
std::optional<std::string> machineAddress();

}  // namespace host
