#include "host/web/respring.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <linux/close_range.h>
#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "host/failure.h"
#include "host/web/request_guard.h"

namespace host {
namespace {

constexpr const char* ownProgram = "/proc/self/exe";
constexpr std::string_view replacedSuffix = " (deleted)";  // What the system adds to its name then.
constexpr const char* variable = "SPRINGBOARD_RESPRING";   // "SOCKET" or "SOCKET TOKEN"

/// The file that this program came from, as it is now: a fresh build, perhaps.
std::string programFile() {
  std::error_code error;
  std::string path = std::filesystem::read_symlink(ownProgram, error).string();
  if (path.ends_with(replacedSuffix)) path.resize(path.size() - replacedSuffix.size());
  return path;
}

}  // namespace

std::optional<Inheritance> takeInheritance() {
  const char* value = getenv(variable);
  if (!value) return std::nullopt;
  const std::string text = value;
  unsetenv(variable);
  Inheritance result{};
  const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), result.socket);
  if (error != std::errc()) return std::nullopt;
  if (*rest == ' ') result.token = rest + 1;
  if (result.token && !isToken(*result.token)) return std::nullopt;
  return result;
}

void respring(const Inheritance& inheritance, char** arguments) {
  setenv(
      variable,
      fmt::format("{}{}{}", inheritance.socket, inheritance.token ? " " : "", inheritance.token.value_or(""))
          .c_str(),
      /*replace=*/1);
  // Whatever else is still open stays behind.
  close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
  fcntl(inheritance.socket, F_SETFD, 0);
  execv(programFile().c_str(), arguments);
  execv(ownProgram, arguments);  // There is no such file any more, but this process still has it.
  throw Failure(fmt::format("respringing: {}", std::generic_category().message(errno)));
}

}  // namespace host
