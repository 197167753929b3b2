#include "host/web/listen_address.h"

#include <fmt/format.h>

#include <boost/asio/ip/address.hpp>
#include <charconv>

namespace host {
namespace {

using boost::asio::ip::address;

std::optional<address> addressOf(std::string_view text) {
  boost::system::error_code error;
  const address result = boost::asio::ip::make_address(text, error);
  return error ? std::nullopt : std::optional(result);
}

std::optional<std::uint16_t> portOf(std::string_view text) {
  std::uint16_t port = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, port);
  return error == std::errc() && stop == end ? std::optional(port) : std::nullopt;
}

std::string_view withoutBrackets(std::string_view host) {
  const bool bracketed = host.size() > 2 && host.front() == '[' && host.back() == ']';
  return bracketed ? host.substr(1, host.size() - 2) : host;
}

}  // namespace

bool ListenAddress::isLoopback() const { return isLoopbackAddress(host); }

bool ListenAddress::isEveryAddress() const {
  const auto parsed = addressOf(host);
  return parsed && parsed->is_unspecified();
}

std::string ListenAddress::authority() const {
  const bool needsBrackets = host.find(':') != std::string::npos;
  return needsBrackets ? fmt::format("[{}]:{}", host, port) : fmt::format("{}:{}", host, port);
}

std::optional<ListenAddress> parseListenAddress(std::string_view text) {
  ListenAddress result;
  const auto colon = text.rfind(':');
  if (colon != text.npos) {
    const std::string_view host = text.substr(0, colon);
    const bool isBareIpv6 = host.find(':') != host.npos && host.front() != '[';
    if (isBareIpv6) return std::nullopt;
    if (host != "localhost") result.host = withoutBrackets(host);
    if (!isIpAddress(result.host)) return std::nullopt;
  }
  const auto port = portOf(colon == text.npos ? text : text.substr(colon + 1));
  if (!port) return std::nullopt;
  result.port = *port;
  return result;
}

bool isIpAddress(std::string_view text) { return addressOf(text).has_value(); }

bool isLoopbackAddress(std::string_view text) {
  const auto parsed = addressOf(text);
  return parsed && parsed->is_loopback();
}

}  // namespace host
