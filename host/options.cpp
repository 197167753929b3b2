#include "host/options.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "host/exit_code.h"
#include "host/failure.h"
#include "host/readable_line.h"
#include "host/script_parser.h"
#include "host/web/request_guard.h"

namespace host {
namespace {

constexpr const char* programName = "springboard";
constexpr const char* description =
    "A home screen without a phone. It boots from a device root, and plays a script or lets people use it.";

std::string scriptHelp() {
  std::string text = "A script is one verb a line; points and seconds; # begins a comment:\n";
  for (std::string_view usage : scriptVerbUsages()) text += fmt::format("  {}\n", usage);
  return text + "\nExit codes: 0 all done, 1 something failed, 2 an option or a line of the script is wrong.";
}

EarlyExit badOption(const std::string& cause) {
  return {fmt::format("{}: {} (--help lists the options)\n", programName, asReadableLine(cause)),
          exitBadInput};
}

/// Empty texts stand for values that were left out. Throws Failure.
ServeOptions serveOptions(const std::string& address, std::optional<std::string> token) {
  ServeOptions serve;
  serve.page = VISTREL_PAGE;
  if (!address.empty()) {
    const auto parsed = parseListenAddress(address);
    if (!parsed)
      throw Failure(
          fmt::format("--serve: no [HOST:]PORT of an IP address and a port up to 65535: \"{}\"", address));
    serve.address = *parsed;
  }
  if (token && token->empty()) token = makeToken();
  if (token && !isToken(*token))
    throw Failure(
        fmt::format("--token: not {} or more letters, digits, - and _: \"{}\"", shortestToken, *token));
  if (!token && !serve.address.isLoopback())
    throw Failure(fmt::format("--serve: others can reach {}: it needs --token", serve.address.authority()));
  serve.token = std::move(token);
  return serve;
}

}  // namespace

std::variant<Options, EarlyExit> parseOptions(int argumentCount, const char* const* arguments) {
  Options options;
  options.boot.root = VISTREL_DEFAULT_ROOT;
  std::string device = defaultDeviceModel;
  bool noTweaks = false;
  std::string address, token;
  std::vector<std::string> deviceNames;
  for (const DeviceModel& model : deviceModels()) deviceNames.push_back(model.name);

  const CLI::Validator notEmpty(
      [](const std::string& text) { return text.empty() ? "must not be empty" : ""; }, "");

  CLI::App app(description, programName);
  app.footer(scriptHelp());
  app.set_version_flag("--version", fmt::format("{} {}", programName, VISTREL_VERSION),
                       "Print the version and exit");
  app.set_help_flag("--help", "Print this and exit");
  app.add_option("--root", options.boot.root, "The folder that is the device's \"/\"")
      ->type_name("DIR")
      ->check(notEmpty)
      ->capture_default_str();
  app.add_option("--device", device, "The device to be")
      ->type_name("NAME")
      ->capture_default_str()
      ->check(CLI::IsMember(deviceNames));
  app.add_flag("--no-tweaks", noTweaks, "Load no add-on libraries")->disable_flag_override();
  app.add_flag("--locked", options.boot.startLocked, "Boot to the lock screen")->disable_flag_override();
  auto* script = app.add_option("--script", options.script,
                                "Play this script; - reads it from standard input, line by line")
                     ->check(notEmpty)
                     ->type_name("FILE");
  app.add_flag("--stats", options.stats,
               "Draw what changes 60 times a second of the script, and say how long that took")
      ->disable_flag_override()
      ->needs(script);
  auto* serve =
      app.add_option("--serve", address,
                     fmt::format("Run in real time and serve a page to use the device on, at {} unless given",
                                 ListenAddress().authority()))
          ->type_name("[HOST:]PORT")
          ->expected(0, 1)
          ->excludes(script);
  auto* tokenOption = app.add_option("--token", token,
                                     "Let in only who knows this token, or one made up; needed where others "
                                     "can reach the address")
                          ->type_name("TOKEN")
                          ->expected(0, 1)
                          ->needs(serve);
  app.add_option("--log", options.log, "Write what happens to this file, one JSON object a line")
      ->check(notEmpty)
      ->type_name("FILE");
  app.add_option("--seed", options.seed,
                 "Seed of the process's random numbers, for add-on libraries that draw any; the home screen "
                 "draws none")
      ->check(notEmpty)
      ->type_name("N");

  try {
    app.parse(argumentCount, arguments);
  } catch (const CLI::CallForHelp&) {
    return EarlyExit{app.help(), exitSuccess};
  } catch (const CLI::CallForVersion& version) {
    return EarlyExit{fmt::format("{}\n", version.what()), exitSuccess};
  } catch (const CLI::ParseError& error) {
    return badOption(error.what());
  }
  options.boot.loadTweaks = !noTweaks;
  options.boot.model = *findDeviceModel(device);
  try {
    if (*serve) options.serve = serveOptions(address, *tokenOption ? std::optional(token) : std::nullopt);
  } catch (const Failure& cause) {
    return badOption(cause.what());
  }
  return options;
}

}  // namespace host
