#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace host {

inline constexpr const char* loopbackHost = "127.0.0.1";

/// Where a server listens.
struct ListenAddress {
  std::string host = loopbackHost;  ///< An IP address, as people write it, IPv6 without brackets.
  std::uint16_t port = 8080;        ///< 0: any that is free.

  bool isLoopback() const;
  bool isEveryAddress() const;  ///< Of this machine: 0.0.0.0 or ::.
  /// "127.0.0.1:8080", "[::1]:8080"
  std::string authority() const;
};

/// Reads "[HOST:]PORT", where HOST is an IP address, IPv6 in brackets, or "localhost". Nothing for other
/// text.
std::optional<ListenAddress> parseListenAddress(std::string_view text);

/// Whether `text` is an IP address, and whether one of this machine's own loop.
bool isIpAddress(std::string_view text);
bool isLoopbackAddress(std::string_view text);

}  // namespace host
