#include "host/script_runner.h"

#include <fmt/format.h>

#include <exception>
#include <functional>

#include "host/exit_code.h"
#include "host/failure.h"
#include "host/script_parser.h"
#include "host/script_verbs.h"

namespace host {

int runScript(std::istream& lines, const std::string& name, SpringBoard& springBoard, std::ostream& output,
              std::ostream& errors) {
  ScriptVerbs verbs(springBoard, output);
  int number = 0;
  // Runs one step and says, as an exit code, what became of it.
  const auto attempt = [&](const std::function<void()>& step) {
    const auto complain = [&](const std::exception& cause, int exitCode) {
      errors << fmt::format("{}:{}: {}\n", name, number, cause.what()) << std::flush;
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
  for (std::string line; result == exitSuccess && std::getline(lines, line);) {
    ++number;
    result = attempt([&] {
      if (auto command = parseScriptLine(line)) verbs.perform(*command);
    });
  }
  if (result == exitSuccess) {
    result = attempt([&] {
      if (lines.bad()) throw Failure("the script cannot be read further");
      verbs.drain();
    });
  }
  const int saving = attempt([&] { verbs.finishRecording(); });
  return result == exitSuccess ? saving : result;
}

}  // namespace host
