#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace monkey {

/// A device's life: how it boots, and what then happens to it, an event a line.
///
/// Most lines are the script's own (docs/host.md); performer.h lists the others. Every line stands by itself,
/// so that any of them can be left out.
struct Life {
  std::string boot;  ///< "boot MODEL", then any of "locked", "names", "activator".
  std::vector<std::string> events;
};

}  // namespace monkey
