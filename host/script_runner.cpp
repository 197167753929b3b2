#include "host/script_runner.h"

#include <fmt/format.h>

#include <exception>
#include <functional>

#include "host/exit_code.h"
#include "host/failure.h"
#include "host/interruption.h"
#include "host/script_parser.h"
#include "host/script_verbs.h"

namespace host {
namespace {

/// The byte order mark that some editors put at the start of a file.
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

constexpr std::size_t longestMessage = 300;

/// A message as one readable line, even where it quotes input that is neither.
std::string readable(std::string_view message) {
  std::string line;
  for (const char character : message.substr(0, longestMessage)) {
    const bool isControl = static_cast<unsigned char>(character) < ' ' || character == '\x7f';
    line += isControl ? fmt::format("\\x{:02x}", static_cast<unsigned char>(character))
                      : std::string(1, character);
  }
  return message.size() > longestMessage ? line + "..." : line;
}

}  // namespace

int runScript(std::istream& lines, const std::string& name, SpringBoard& springBoard, std::ostream& output,
              std::ostream& errors) {
  ScriptVerbs verbs(springBoard, output);
  int number = 0;
  // Runs one step and says, as an exit code, what became of it.
  const auto attempt = [&](const std::function<void()>& step) {
    const auto complain = [&](const std::exception& cause, int exitCode) {
      errors << fmt::format("{}:{}: {}\n", name, number, readable(cause.what())) << std::flush;
      return exitCode;
    };
    try {
      step();
      return exitSuccess;
    } catch (const BadScriptLine& badLine) {
      return complain(badLine, exitBadInput);
    } catch (const std::exception& failure) {
      // Failures and impossible touches are meant to come; an add-on library's fault ends the run no less
      // tidily.
      return complain(failure, exitFailed);
    }
  };

  int result = exitSuccess;
  for (std::string line; result == exitSuccess && !interrupted() && std::getline(lines, line);) {
    ++number;
    if (number == 1 && line.starts_with(byteOrderMark)) line.erase(0, byteOrderMark.size());
    result = attempt([&] {
      if (auto command = parseScriptLine(line)) verbs.perform(*command);
    });
  }
  if (result == exitSuccess) {
    result = attempt([&] {
      if (interrupted()) throw Failure("interrupted");
      if (lines.bad()) throw Failure("the script cannot be read further");
      verbs.drain();
    });
  }
  const int saving = attempt([&] { verbs.finishRecording(); });
  return result == exitSuccess ? saving : result;
}

}  // namespace host
