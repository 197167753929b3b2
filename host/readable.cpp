#include "host/readable.h"

#include <fmt/format.h>

namespace host {
namespace {

constexpr std::size_t longestMessage = 300;  // Bytes.

}  // namespace

std::string readable(std::string_view message) {
  std::string line;
  for (const char character : message.substr(0, longestMessage)) {
    const bool isControl = static_cast<unsigned char>(character) < ' ' || character == '\x7f';
    line += isControl ? fmt::format("\\x{:02x}", static_cast<unsigned char>(character))
                      : std::string(1, character);
  }
  return message.size() > longestMessage ? line + "..." : line;
}

}  // namespace host
