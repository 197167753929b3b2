#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>

#include "host/event_log.h"
#include "host/exit_code.h"
#include "host/failure.h"
#include "host/interruption.h"
#include "host/machine_file.h"
#include "host/options.h"
#include "host/script_runner.h"
#include "host/spring_board.h"

namespace {

/// The lines to play: a file's, those of standard input, or none at all.
class Script {
 public:
  explicit Script(const std::optional<std::string>& source)
      : fromStandardInput_(source == host::standardInput),
        name_(fromStandardInput_ ? "<stdin>" : source.value_or("")) {
    if (source && !fromStandardInput_) file_ = host::openMachineFile(*source);
  }

  std::istream& lines() { return fromStandardInput_ ? std::cin : file_; }
  const std::string& name() const { return name_; }

 private:
  bool fromStandardInput_;
  std::string name_;
  std::ifstream file_;  // Never opened where there is no script: a stream without lines.
};

/// The warnings that have come since the last call, which had seen `seen` of them.
void printNewWarnings(const host::SpringBoard& springBoard, std::size_t& seen) {
  for (; seen < springBoard.warnings().size(); ++seen)
    std::cerr << "springboard: " << springBoard.warnings()[seen] << std::endl;
}

void refuseOneFileForBoth(const host::Options& options) {
  std::error_code ignored;
  if (options.log && options.script && std::filesystem::equivalent(*options.log, *options.script, ignored))
    throw host::Failure(options.log->string() + ": is the script; the log would overwrite it");
}

int run(const host::Options& options) {
  host::catchInterruptions();
  refuseOneFileForBoth(options);
  if (options.seed) std::srand(*options.seed);
  // What can be refused comes before the device boots and writes files of its own; the log sees the boot.
  Script script(options.script);
  std::optional<host::EventLog> log;
  if (options.log) log.emplace(*options.log);

  host::SpringBoard springBoard(options.boot);
  std::size_t warned = 0;
  printNewWarnings(springBoard, warned);
  const int result = host::runScript(script.lines(), script.name(), springBoard, std::cout, std::cerr);
  printNewWarnings(springBoard, warned);
  if (log) log->checkWritten();
  return result;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const auto parsed = host::parseOptions(argumentCount, arguments);
  if (auto* exit = std::get_if<host::EarlyExit>(&parsed)) {
    (exit->exitCode == host::exitSuccess ? std::cout : std::cerr) << exit->text << std::flush;
    return exit->exitCode;
  }
  try {
    return run(std::get<host::Options>(parsed));
  } catch (const std::exception& error) {
    std::cerr << "springboard: " << error.what() << std::endl;
    return host::exitFailed;
  }
}
