#include "host/script_runner.h"

#include <fmt/format.h>

#include <exception>
#include <functional>

#include "host/exit_code.h"
#include "host/failure.h"
#include "host/interruption.h"
#include "host/readable.h"
#include "host/script_parser.h"
#include "host/script_verbs.h"

namespace host {
namespace {

/// The byte order mark that some editors put at the start of a file.
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

constexpr std::size_t longestLine = 64 << 10;  // Bytes.

/// The next line, of one that is too long the beginning; false when there is none.
bool takeLine(std::istream& lines, std::string& line) {
  std::string room(longestLine + 2, '\0');  // One byte to see that it is too long, one for a NUL.
  lines.getline(room.data(), std::ssize(room));
  const auto taken = static_cast<std::size_t>(lines.gcount());
  line.assign(room, 0, lines.good() ? taken - 1 : taken);  // The end of a line is no part of it.
  return !lines.fail() || line.size() > longestLine;
}

}  // namespace

int runScript(std::istream& lines, const std::string& name, SpringBoard& springBoard, std::ostream& output,
              std::ostream& errors) {
  ScriptVerbs verbs(springBoard, output);
  int number = 0;
  // Runs one step and says, as an exit code, what became of it.
  const auto attempt = [&](const std::function<void()>& step) {
    const auto complain = [&](std::string_view cause, int exitCode) {
      errors << fmt::format("{}:{}: {}\n", name, number, readable(cause)) << std::flush;
      return exitCode;
    };
    try {
      step();
      return exitSuccess;
    } catch (const BadScriptLine& badLine) {
      return complain(badLine.what(), exitBadInput);
    } catch (const std::exception& failure) {
      // Failures and impossible touches are meant to come; an add-on library's fault ends the run no less
      // tidily.
      return complain(failure.what(), exitFailed);
    } catch (...) {
      return complain(unknownFault, exitFailed);
    }
  };

  int result = exitSuccess;
  for (std::string line; result == exitSuccess && !interrupted() && takeLine(lines, line);) {
    ++number;
    if (number == 1 && line.starts_with(byteOrderMark)) line.erase(0, byteOrderMark.size());
    result = attempt([&] {
      if (line.size() > longestLine) throw BadScriptLine(fmt::format("longer than {} bytes", longestLine));
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
