#include "host/options.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>

#include "host/exit_code.h"
#include "host/script_parser.h"

namespace host {
namespace {

constexpr const char* programName = "springboard";
constexpr const char* description =
    "A home screen without a phone. It boots from a device root, plays a script, if one is given, and exits.";

std::string scriptHelp() {
  std::string text = "A script is one verb a line; points and seconds; # begins a comment:\n";
  for (std::string_view usage : scriptVerbUsages()) text += fmt::format("  {}\n", usage);
  return text + "\nExit codes: 0 all done, 1 something failed, 2 an option or a line of the script is wrong.";
}

std::string oneLine(std::string text) {
  std::ranges::replace(text, '\n', ' ');
  return text;
}

}  // namespace

std::variant<Options, EarlyExit> parseOptions(int argumentCount, const char* const* arguments) {
  Options options;
  options.boot.root = VISTREL_DEFAULT_ROOT;
  std::string device = defaultDeviceModel;
  bool noTweaks = false;
  std::vector<std::string> deviceNames;
  for (const DeviceModel& model : deviceModels()) deviceNames.push_back(model.name);

  CLI::App app(description, programName);
  app.footer(scriptHelp());
  app.set_version_flag("--version", fmt::format("{} {}", programName, VISTREL_VERSION),
                       "Print the version and exit");
  app.set_help_flag("--help", "Print this and exit");
  app.add_option("--root", options.boot.root, "The folder that is the device's \"/\"")
      ->type_name("DIR")
      ->capture_default_str();
  app.add_option("--device", device, "The device to be")
      ->type_name("NAME")
      ->capture_default_str()
      ->check(CLI::IsMember(deviceNames));
  app.add_flag("--no-tweaks", noTweaks, "Load no add-on libraries");
  app.add_flag("--locked", options.boot.startLocked, "Boot to the lock screen");
  app.add_option("--script", options.script, "Play this script; - reads it from standard input, line by line")
      ->type_name("FILE");
  app.add_option("--log", options.log, "Write what happens to this file, one JSON object a line")
      ->type_name("FILE");
  app.add_option("--seed", options.seed,
                 "Seed of the process's random numbers, for add-on libraries that draw any; the home screen "
                 "draws none")
      ->type_name("N");

  try {
    app.parse(argumentCount, arguments);
  } catch (const CLI::CallForHelp&) {
    return EarlyExit{app.help(), exitSuccess};
  } catch (const CLI::CallForVersion& version) {
    return EarlyExit{fmt::format("{}\n", version.what()), exitSuccess};
  } catch (const CLI::ParseError& error) {
    return EarlyExit{fmt::format("{}: {} (--help lists the options)\n", programName, oneLine(error.what())),
                     exitBadInput};
  }
  options.boot.loadTweaks = !noTweaks;
  options.boot.model = *findDeviceModel(device);
  return options;
}

}  // namespace host
