#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/web/listen_address.h"

namespace host {

/// What a request says of itself. Views of the request.
struct RequestClaims {
  std::string_view host;                   ///< The Host header, empty where there is none.
  std::optional<std::string_view> origin;  ///< The Origin header.
  std::string_view token;                  ///< The token in its address, empty where there is none.
};

/// Decides who gets in. Pages from elsewhere must not reach the device through their visitor's browser, not
/// even under a name of theirs that resolves here.
class RequestGuard {
 public:
  RequestGuard(ListenAddress address, std::optional<std::string> token)
      : address_(std::move(address)), token_(std::move(token)) {}

  /// Whether the request names this server, and comes from its own page or from no page at all.
  bool isForUs(const RequestClaims& claims) const;
  /// Whether it knows the token, where there is one. Takes as long for a good guess as for a bad one.
  bool knowsToken(const RequestClaims& claims) const;

 private:
  bool namesUs(std::string_view host) const;

  ListenAddress address_;
  std::optional<std::string> token_;
};

/// How an address says the token, before the token itself.
inline constexpr std::string_view tokenParameter = "token=";
/// What to type into a browser for a server at `address`.
std::string pageAddress(const ListenAddress& address, const std::optional<std::string>& token);

inline constexpr std::size_t shortestToken = 8;
/// Whether `text` can be a token: not too short, of letters, digits, '-' and '_'.
bool isToken(std::string_view text);
/// A token that nobody guesses.
std::string makeToken();

}  // namespace host
