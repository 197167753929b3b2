// The monkey: random events on the whole device, for as long as one likes, and what must hold after each.

#include <fmt/format.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <random>
#include <thread>

#include "monkey/event_generator.h"
#include "monkey/shrink.h"
#include "monkey/trial.h"

namespace monkey {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t eventsPerLife = 10'000;

struct Options {
  std::uint64_t events = 20'000;
  std::uint64_t seed = 0;
  unsigned jobs = std::max(1u, std::thread::hardware_concurrency());
  fs::path replay;
  fs::path saveIn = ".";
};

/// Where the devices keep their files, in memory if there is a place for that; gone at the end.
class Scratch {
 public:
  Scratch() {
    const fs::path inMemory = "/dev/shm";
    const fs::path parent = fs::is_directory(inMemory) ? inMemory : fs::temp_directory_path();
    std::string pattern = parent / "monkey-XXXXXX";
    folder_ = mkdtemp(pattern.data());
    setenv("TMPDIR", folder_.c_str(), 1);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;
  ~Scratch() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }

 private:
  fs::path folder_;
};

Life readLife(const fs::path& file) {
  std::ifstream stream(file);
  Life life;
  std::getline(stream, life.boot);
  for (std::string line; std::getline(stream, line);) life.events.push_back(line);
  if (life.boot.empty()) throw std::runtime_error(file.string() + ": no life to replay");
  return life;
}

void writeLife(const Life& life, const fs::path& file) {
  std::ofstream stream(file);
  stream << life.boot << '\n';
  for (const std::string& event : life.events) stream << event << '\n';
  if (!stream.flush()) throw std::runtime_error(file.string() + ": cannot be written");
}

/// The life of a seed, up to and with its first `count` events.
Life lifeOf(std::uint64_t seed, std::uint64_t count) {
  EventGenerator generator(seed);
  Life life{generator.boot(), {}};
  while (life.events.size() < count) life.events.push_back(generator.next());
  return life;
}

std::unique_ptr<Trial> begin(std::uint64_t seed, std::uint64_t count) {
  auto generator = std::make_shared<EventGenerator>(seed);
  auto next = [generator, count]() mutable -> std::optional<std::string> {
    return count-- > 0 ? std::optional(generator->next()) : std::nullopt;
  };
  return std::make_unique<Trial>(generator->boot(), next, false);
}

void report(std::uint64_t seed, const Outcome& outcome, const Options& options) {
  std::cerr << fmt::format("monkey: seed {}, event {}: {}\n", seed, outcome.tally.events, *outcome.failure);
  const Life life = shrink(lifeOf(seed, outcome.tally.events), *outcome.failure);
  const fs::path file = options.saveIn / fmt::format("monkey-{}.life", seed);
  writeLife(life, file);
  std::cerr << fmt::format("{} events are enough (again: ./dev monkey --replay {}):\n{}\n",
                           life.events.size(), file.string(), life.boot);
  for (const std::string& event : life.events) std::cerr << event << '\n';
}

void summarize(const Tally& tally, std::uint64_t lives) {
  std::cout << fmt::format(
      "{} events in {} lives: {} openings and {} closings of the switcher, which opened {} applications, "
      "quit "
      "{} and locked {} times; {} launches by icon, {} turns; {} looks, {} of them at an unchanged screen\n",
      tally.events, lives, tally.openings, tally.closings, tally.launchesBySwitcher, tally.quitsBySwitcher,
      tally.locksBySwitcher, tally.launchesByIcon, tally.turns, tally.looks, tally.looksAtUnchanged);
}

/// Several lives at a time, each in a process. No new ones begin once one has failed; the first to fail is
/// shrunk.
int run(const Options& options) {
  std::cout << fmt::format("{} events from seed {}", options.events, options.seed) << std::endl;
  std::map<int, std::pair<std::uint64_t, std::unique_ptr<Trial>>> running;  // By process.
  std::optional<std::pair<std::uint64_t, Outcome>> failed;
  Tally total;
  std::uint64_t begun = 0;  // Events.
  std::uint64_t lives = 0;
  while (true) {
    while (!failed && begun < options.events && running.size() < options.jobs) {
      const std::uint64_t seed = options.seed + lives++;
      const std::uint64_t count = std::min(eventsPerLife, options.events - begun);
      begun += count;
      auto trial = begin(seed, count);
      const int process = trial->process();
      running.emplace(process, std::pair(seed, std::move(trial)));
    }
    if (running.empty()) break;
    int status = 0;
    const auto ended = running.find(waitpid(-1, &status, 0));
    if (ended == running.end()) continue;
    const auto& [seed, trial] = ended->second;
    Outcome outcome = trial->outcome(status);
    total.add(outcome.tally);
    if (outcome.failure && !failed) failed.emplace(seed, std::move(outcome));
    running.erase(ended);
  }
  summarize(total, lives);
  if (failed) report(failed->first, failed->second, options);
  return failed ? EXIT_FAILURE : EXIT_SUCCESS;
}

int replay(const Options& options) {
  const Outcome outcome = tryLife(readLife(options.replay));
  std::cout << fmt::format("{} events: {}\n", outcome.tally.events, outcome.failure.value_or("all is well"));
  return outcome.failure ? EXIT_FAILURE : EXIT_SUCCESS;
}

}  // namespace
}  // namespace monkey

int main(int argumentCount, char** arguments) {
  monkey::Options options;
  options.seed = std::random_device()();
  CLI::App app("Random events on the whole device, and what must hold after each", "monkey");
  app.add_option("--events", options.events, "How many (20,000)")->check(CLI::PositiveNumber);
  app.add_option("--seed", options.seed, "The same seed makes the same events; a fresh one by default");
  app.add_option("--jobs", options.jobs, "Devices at a time (one a core)")->check(CLI::PositiveNumber);
  app.add_option("--replay", options.replay, "Plays a saved life instead");
  app.add_option("--save-in", options.saveIn, "The folder for the life that failed (the current one)");
  CLI11_PARSE(app, argumentCount, arguments);
  try {
    const monkey::Scratch scratch;
    return options.replay.empty() ? monkey::run(options) : monkey::replay(options);
  } catch (const std::exception& error) {
    std::cerr << "monkey: " << error.what() << std::endl;
    return EXIT_FAILURE;
  }
}
