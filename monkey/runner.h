#pragma once

#include <cstdint>
#include <filesystem>

namespace monkey {

struct RunOptions {
  std::uint64_t events = 20'000;
  std::uint64_t seed = 0;  ///< Of the first device; those after it have the numbers that follow.
  unsigned jobs = 1;       ///< Devices at a time.
  std::filesystem::path saveIn = ".";
};

/// Has one device after the other live, 10,000 events each, until all events have happened or one has failed.
/// Says on standard output what they went through, and on standard error what failed and how few events it
/// takes. False when something did.
bool runDevices(const RunOptions& options);

/// Has a device live through a saved sequence, and says how it went. False when it failed.
bool replay(const std::filesystem::path& file);

}  // namespace monkey
