#include "host/readable_line.h"

#include <fmt/format.h>

namespace host {
namespace {

constexpr std::size_t longestMessage = 300;  // Bytes.
constexpr std::string_view omission = " ... ";
constexpr std::size_t longestPart = (longestMessage - omission.size()) / 2;  // On either side of it.

bool continuesCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xc0) == 0x80; }  // UTF-8.

/// Whole characters from the beginning and the end of a message that is too long.
std::string withoutMiddle(std::string_view message) {
  std::size_t headEnd = longestPart, tailStart = message.size() - longestPart;
  while (headEnd > 0 && continuesCharacter(message[headEnd])) --headEnd;
  while (tailStart < message.size() && continuesCharacter(message[tailStart])) ++tailStart;
  return fmt::format("{}{}{}", message.substr(0, headEnd), omission, message.substr(tailStart));
}

}  // namespace

std::string asReadableLine(std::string_view message) {
  if (message.size() > longestMessage) return asReadableLine(withoutMiddle(message));
  std::string line;
  for (const char character : message) {
    const bool isControl = static_cast<unsigned char>(character) < ' ' || character == '\x7f';
    line += isControl ? fmt::format("\\x{:02x}", static_cast<unsigned char>(character))
                      : std::string(1, character);
  }
  return line;
}

}  // namespace host
