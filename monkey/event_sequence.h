#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace monkey {

/// The life of a device: how it boots and what then happens to it, as lines (event.h).
struct EventSequence {
  std::string boot;
  std::vector<std::string> events;
};

/// Where a device's events come from: each call gives the next line, nothing at the end.
using EventSource = std::function<std::optional<std::string>()>;

/// The first `count` events of a seed.
EventSequence sequenceOf(std::uint64_t seed, std::uint64_t count);

/// A file has the boot in its first line. Both throw std::runtime_error where the file cannot be read or
/// written.
EventSequence readSequence(const std::filesystem::path& file);
void writeSequence(const EventSequence& sequence, const std::filesystem::path& file);

}  // namespace monkey
