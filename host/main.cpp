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
#include "host/frame_meter.h"
#include "host/interruption.h"
#include "host/machine_file.h"
#include "host/options.h"
#include "host/readable_line.h"
#include "host/script_runner.h"
#include "host/settings/preference_panes.h"
#include "host/spring_board.h"
#include "host/standard_streams.h"
#include "host/web/device_server.h"
#include "host/web/respring.h"

namespace {

/// The lines to play: a file's, those of standard input, or none at all.
class Script {
 public:
  explicit Script(const std::optional<std::string>& source)
      : fromStandardInput_(source == host::standardInput),
        name_(fromStandardInput_ ? "<stdin>" : source.value_or("springboard")) {
    if (fromStandardInput_) host::requireStandardInput();
    if (source && !fromStandardInput_) file_ = host::openMachineFile(*source);
  }

  std::istream& lines() { return fromStandardInput_ ? std::cin : file_; }
  const std::string& name() const { return name_; }

 private:
  bool fromStandardInput_;
  std::string name_;
  std::ifstream file_;  // Never opened where there is no script: a stream without lines.
};

void complain(const std::string& cause) {
  std::cerr << "springboard: " << host::asReadableLine(cause) << std::endl;
}

/// A device that has booted, and what is said of it on the way.
class Device {
 public:
  Device(const host::Options& options, host::MachineFile::Existing log) {
    if (options.seed) std::srand(*options.seed);
    if (options.log) openLog(*options.log, log);  // The log sees the boot.
    springBoard_.emplace(options.boot);
    springBoard_->tellWarnings(complain);
  }

  host::SpringBoard& springBoard() { return *springBoard_; }

  /// Throws Failure when the log lacks anything.
  void checkLog() const {
    if (log_) log_->checkWritten();
  }

 private:
  void openLog(const std::filesystem::path& path, host::MachineFile::Existing existing) {
    try {
      log_.emplace(path, existing);
    } catch (const host::Failure& cause) {
      if (existing == host::MachineFile::Existing::Emptied) throw;
      complain(cause.what());  // Whoever resprings has promised to come back, with a log or without.
    }
  }

  std::optional<host::EventLog> log_;
  std::optional<host::SpringBoard> springBoard_;
};

void refuseOneFileForBoth(const host::Options& options) {
  std::error_code ignored;
  if (options.log && options.script && std::filesystem::equivalent(*options.log, *options.script, ignored))
    throw host::Failure(options.log->string() + ": is the script; the log would overwrite it");
}

// What can be refused comes before the device boots and writes files of its own.

int play(const host::Options& options) {
  refuseOneFileForBoth(options);
  Script script(options.script);
  Device device(options, host::MachineFile::Existing::Emptied);
  std::optional<host::FrameMeter> meter;
  if (options.stats) meter.emplace(RunLoop::main().now());
  const int result = host::runScript(script.lines(), script.name(), device.springBoard(), std::cout,
                                     std::cerr, meter ? &*meter : nullptr);
  if (meter) std::cerr << host::reportOf(meter->statistics()) << std::flush;
  device.checkLog();
  return result;
}

using End = host::DeviceServer::End;

/// A log that lacks something does not keep a device from coming back.
void checkLog(const Device& device, End end) {
  try {
    device.checkLog();
  } catch (const host::Failure& cause) {
    if (end != End::Respring) throw;
    complain(cause.what());
  }
}

/// `arguments` are those of the process, for one that takes its place.
int serve(const host::Options& options, char** arguments) {
  const auto inherited = host::takeInheritance();
  host::ServeOptions serving = *options.serve;
  if (inherited) serving.token = inherited->token;
  host::DeviceServer server(serving, inherited ? std::optional(inherited->socket) : std::nullopt);

  auto end = End::SwitchedOff;
  {
    using Existing = host::MachineFile::Existing;
    Device device(options, inherited ? Existing::Kept : Existing::Emptied);
    host::PreferencePanes panes(device.springBoard().applications());
    for (const std::string& warning : panes.warnings()) complain(warning);
    if (!inherited)
      host::print(std::cout, "The device is at " + server.pageAddress() + " (Ctrl-C switches it off)\n");
    end = server.run(device.springBoard(), panes);
    checkLog(device, end);
  }
  if (end == End::Respring) host::respring({server.release(), serving.token}, arguments);
  return host::exitSuccess;
}

int leave(const host::EarlyExit& exit) {
  if (exit.exitCode == host::exitSuccess) {
    host::print(std::cout, exit.text);
  } else {
    std::cerr << exit.text << std::flush;
  }
  return exit.exitCode;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  host::holdClosedStandardStreams();
  host::catchInterruptions();
  try {
    const auto parsed = host::parseOptions(argumentCount, arguments);
    if (auto* exit = std::get_if<host::EarlyExit>(&parsed)) return leave(*exit);
    const auto& options = std::get<host::Options>(parsed);
    return options.serve ? serve(options, arguments) : play(options);
  } catch (const std::exception& error) {
    complain(error.what());
  } catch (...) {
    complain(host::unknownFault);
  }
  return host::exitFailed;
}
