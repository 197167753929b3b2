#include "host/web/request_target.h"

#include <charconv>
#include <cstdint>

#include "host/web/request_guard.h"

namespace host {
namespace {

std::string decoded(std::string_view path) {
  constexpr std::size_t escapeLength = 3;
  constexpr int hexadecimal = 16;
  std::string result;
  for (std::size_t at = 0; at < path.size(); ++at) {
    std::uint8_t byte = 0;
    const std::string_view escape = path.substr(at, escapeLength);
    const char* end = escape.data() + escape.size();
    const bool isEscape = escape.size() == escapeLength && escape[0] == '%' &&
                          std::from_chars(escape.data() + 1, end, byte, hexadecimal).ptr == end;
    result += isEscape ? char(byte) : path[at];
    if (isEscape) at += escapeLength - 1;
  }
  return result;
}

}  // namespace

RequestTarget::RequestTarget(std::string_view text) {
  const std::string_view encoded = text.substr(0, text.find('?'));
  path = decoded(encoded);
  if (encoded.size() == text.size()) return;
  const std::string_view query = text.substr(encoded.size() + 1);
  if (query.starts_with(tokenParameter)) token = query.substr(tokenParameter.size());
}

}  // namespace host
