#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <variant>

#include "host/spring_board.h"
#include "host/web/serve_options.h"

namespace host {

/// Where a script comes from when it is not a file: standard input.
inline constexpr const char* standardInput = "-";

struct Options {
  BootOptions boot;
  std::optional<std::string> script;         ///< A path of this machine, or standardInput.
  bool stats = false;                        ///< Measure the script's frames.
  std::optional<std::filesystem::path> log;  ///< Nothing: no log.
  std::optional<unsigned> seed;
  std::optional<ServeOptions> serve;  ///< Nothing: a script, in virtual time.
};

/// There is nothing to run: what to say instead, and the process's exit code (success: for standard output).
struct EarlyExit {
  std::string text;
  int exitCode;
};

/// Reads the command line. Whatever is wrong with it comes back as one line.
std::variant<Options, EarlyExit> parseOptions(int argumentCount, const char* const* arguments);

}  // namespace host
