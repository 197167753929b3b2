#include "host/script_runner.h"

#include <fmt/format.h>

#include <exception>
#include <functional>

#include "host/bounded_line.h"
#include "host/exit_code.h"
#include "host/failure.h"
#include "host/interruption.h"
#include "host/readable_line.h"
#include "host/script_parser.h"
#include "host/script_verbs.h"

namespace host {
namespace {

/// The byte order mark that some editors put at the start of a file.
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

constexpr std::size_t longestLine = 64 << 10;  // Bytes.

/// A script being played. What its steps return is an exit code.
class ScriptRun {
 public:
  ScriptRun(std::istream& lines, const std::string& name, SpringBoard& springBoard, std::ostream& output,
            std::ostream& errors, FrameMeter* meter)
      : lines_(lines), name_(name), errors_(errors), verbs_(springBoard, output, meter) {}

  int play() {
    int result = exitSuccess;
    for (std::string line; result == exitSuccess && takeLine(line);) {
      result = attempt([&] { performLine(line); });
    }
    if (result == exitSuccess) result = attempt([&] { comeToRest(); });
    const int saving = attempt([&] { verbs_.finishRecording(); });
    return result == exitSuccess ? saving : result;
  }

 private:
  bool takeLine(std::string& line) {
    if (interrupted() || !takeBoundedLine(lines_, line, longestLine)) return false;
    ++number_;
    if (number_ == 1 && line.starts_with(byteOrderMark)) line.erase(0, byteOrderMark.size());
    return true;
  }

  void performLine(const std::string& line) {
    if (line.size() > longestLine) throw BadScriptLine(fmt::format("longer than {} bytes", longestLine));
    if (auto command = parseScriptLine(line)) verbs_.perform(*command);
  }

  void comeToRest() {
    stopIfInterrupted();
    if (lines_.bad()) throw Failure("the script cannot be read further");
    verbs_.drain();
  }

  int attempt(const std::function<void()>& step) {
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
  }

  int complain(std::string_view cause, int exitCode) {
    const std::string place = number_ > 0 ? fmt::format("{}:{}", name_, number_) : name_;
    errors_ << fmt::format("{}: {}\n", place, asReadableLine(cause)) << std::flush;
    return exitCode;
  }

  std::istream& lines_;
  const std::string& name_;
  std::ostream& errors_;
  ScriptVerbs verbs_;
  int number_ = 0;  // Of the line that was taken last.
};

}  // namespace

int runScript(std::istream& lines, const std::string& name, SpringBoard& springBoard, std::ostream& output,
              std::ostream& errors, FrameMeter* meter) {
  return ScriptRun(lines, name, springBoard, output, errors, meter).play();
}

}  // namespace host
