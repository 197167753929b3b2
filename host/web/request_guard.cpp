#include "host/web/request_guard.h"

#include <fmt/format.h>

#include <algorithm>
#include <random>

namespace host {
namespace {

constexpr std::string_view scheme = "http://";
constexpr int usualPort = 80;  // Of the scheme; browsers leave it out.
constexpr std::size_t madeTokenLength = 24;
constexpr std::string_view tokenCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";

/// Looks at every character, whatever the ones before it were.
bool equalInConstantTime(std::string_view known, std::string_view offered) {
  unsigned difference = known.size() == offered.size() ? 0 : 1;
  for (std::size_t i = 0; i < offered.size(); ++i) {
    difference |= static_cast<unsigned char>(offered[i] ^ known[i % known.size()]);
  }
  return difference == 0;
}

}  // namespace

bool RequestGuard::isForUs(const RequestClaims& claims) const {
  if (!namesUs(claims.host)) return false;
  return !claims.origin || *claims.origin == fmt::format("{}{}", scheme, claims.host);
}

bool RequestGuard::namesUs(std::string_view host) const {
  const bool hasPort = host.rfind(':') != host.npos && !host.ends_with(']');
  const auto named = parseListenAddress(hasPort ? std::string(host) : fmt::format("{}:{}", host, usualPort));
  if (!named || named->port != address_.port) return false;
  // An address can't be made to resolve elsewhere, as a name can.
  return !address_.isLoopback() || named->isLoopback();
}

bool RequestGuard::knowsToken(const RequestClaims& claims) const {
  return !token_ || equalInConstantTime(*token_, claims.token);
}

std::string pageAddress(const ListenAddress& address, const std::optional<std::string>& token) {
  const std::string page = fmt::format("{}{}/", scheme, address.authority());
  return token ? fmt::format("{}?{}{}", page, tokenParameter, *token) : page;
}

bool isToken(std::string_view text) {
  return text.size() >= shortestToken && text.find_first_not_of(tokenCharacters) == text.npos;
}

std::string makeToken() {
  std::random_device random;  // The system's own entropy.
  std::uniform_int_distribution<std::size_t> place(0, tokenCharacters.size() - 1);
  std::string token;
  std::generate_n(std::back_inserter(token), madeTokenLength, [&] { return tokenCharacters[place(random)]; });
  return token;
}

}  // namespace host
