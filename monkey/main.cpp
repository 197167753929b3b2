// The monkey: random events on the whole device, for as long as one likes, and what must hold after each.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <limits>
#include <random>
#include <string>
#include <thread>

#include "monkey/runner.h"

namespace {

constexpr int wrongOption = 2;
constexpr std::uint64_t mostEvents = 1'000'000'000'000;
constexpr std::uint64_t largestSeed = std::numeric_limits<std::int64_t>::max();
constexpr unsigned mostJobs = 256;

int complain(const std::string& cause, int exitCode) {
  std::cerr << "monkey: " << cause << std::endl;
  return exitCode;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  monkey::RunOptions options;
  options.seed = std::random_device()();
  options.jobs = std::clamp(std::thread::hardware_concurrency(), 1u, mostJobs);
  std::filesystem::path file;
  CLI::App app("Random events on the whole device, and what must hold after each", "monkey");
  app.add_option("--events", options.events, "How many (20,000)")
      ->check(CLI::Range(std::uint64_t{1}, mostEvents));
  app.add_option("--seed", options.seed, "The same seed makes the same events; a fresh one by default")
      ->check(CLI::Range(std::uint64_t{0}, largestSeed));
  app.add_option("--jobs", options.jobs, "Devices at a time (one a core)")->check(CLI::Range(1u, mostJobs));
  app.add_option("--replay", file, "Plays a saved sequence instead")->check(CLI::ExistingFile);
  app.add_option("--save-in", options.saveIn, "The folder for a sequence that fails (the current one)")
      ->check(CLI::ExistingDirectory);
  try {
    app.parse(argumentCount, arguments);
    const bool allIsWell = file.empty() ? monkey::runDevices(options) : monkey::replay(file);
    return allIsWell ? EXIT_SUCCESS : EXIT_FAILURE;
  } catch (const CLI::CallForHelp& help) {
    return app.exit(help);
  } catch (const CLI::ParseError& error) {
    return complain(error.what(), wrongOption);
  } catch (const std::exception& error) {
    return complain(error.what(), EXIT_FAILURE);
  }
}
