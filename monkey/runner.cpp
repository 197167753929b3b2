#include "monkey/runner.h"

#include <fmt/format.h>
#include <sys/wait.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <memory>
#include <optional>

#include "monkey/event_generator.h"
#include "monkey/heap.h"
#include "monkey/isolated_run.h"
#include "monkey/shrink.h"

namespace monkey {
namespace {

constexpr std::uint64_t eventsOfADevice = 10'000;

struct Failed {
  std::uint64_t seed;
  Outcome outcome;
};

/// The devices that live at the moment.
class Devices {
 public:
  std::size_t count() const { return running_.size(); }

  void begin(std::uint64_t seed, std::uint64_t events) {
    auto generator = std::make_shared<EventGenerator>(seed);
    const auto next = [generator, left = events]() mutable -> std::optional<std::string> {
      return left-- > 0 ? std::optional(generator->next()) : std::nullopt;
    };
    auto run = std::make_unique<IsolatedRun>(generator->boot(), next, IsolatedRun::usualPatience);
    const pid_t process = run->process();
    running_.emplace(process, Running{seed, std::move(run)});
  }

  /// Waits for one of them to end; there has to be one.
  std::pair<std::uint64_t, Outcome> waitForOne() {
    siginfo_t info{};
    while (waitid(P_ALL, 0, &info, WEXITED | WNOWAIT) < 0 && errno == EINTR) continue;
    auto ended = running_.extract(info.si_pid);
    return {ended.mapped().seed, ended.mapped().run->wait()};
  }

 private:
  struct Running {
    std::uint64_t seed;
    std::unique_ptr<IsolatedRun> run;
  };
  std::map<pid_t, Running> running_;
};

void report(const Failed& failed, const RunOptions& options) {
  const auto& [seed, outcome] = failed;
  std::cerr << outcome.output
            << fmt::format("monkey: seed {}, event {}: {}\n", seed, outcome.tally.events, *outcome.failure);
  const EventSequence all = sequenceOf(seed, outcome.tally.events);
  const auto shortest = shrink(all, *outcome.failure);
  const auto file = options.saveIn / fmt::format("monkey-{}.events", seed);
  writeSequence(shortest.value_or(all), file);
  const char* preset = hasAddressSanitizer ? " --preset sanitize" : "";
  std::cerr << fmt::format("To run it again: ./dev monkey --replay {}{}\n", file.string(), preset);
  if (!shortest) {
    std::cerr << "It did not fail a second time; all its events are kept.\n";
    return;
  }
  std::cerr << fmt::format("These {} events are enough:\n{}\n", shortest->events.size(), shortest->boot);
  for (const std::string& event : shortest->events) std::cerr << event << '\n';
}

void summarize(const Tally& tally, std::uint64_t devices) {
  std::cout << fmt::format(
      "{} events on {} devices. The switcher opened {} times and closed {} times; it launched {} "
      "applications, "
      "quit {} and locked {} times. {} launches by icon, {} turns. {} looks, {} of them at an unchanged "
      "screen.\n",
      tally.events, devices, tally.openings, tally.closings, tally.launchesBySwitcher, tally.quitsBySwitcher,
      tally.locksBySwitcher, tally.launchesByIcon, tally.turns, tally.looks, tally.looksAtUnchanged);
}

}  // namespace

bool runDevices(const RunOptions& options) {
  std::cout << fmt::format("{} events, --seed {}", options.events, options.seed) << std::endl;
  Devices running;
  std::optional<Failed> failed;
  Tally total;
  std::uint64_t eventsBegun = 0, devicesBegun = 0;
  do {
    while (!failed && eventsBegun < options.events && running.count() < options.jobs) {
      const std::uint64_t events = std::min(eventsOfADevice, options.events - eventsBegun);
      running.begin(options.seed + devicesBegun++, events);
      eventsBegun += events;
    }
    auto [seed, outcome] = running.waitForOne();
    total += outcome.tally;
    if (outcome.failure && !failed) failed = Failed{seed, std::move(outcome)};
  } while (running.count() > 0 || (!failed && eventsBegun < options.events));
  summarize(total, devicesBegun);
  if (failed) report(*failed, options);
  return !failed;
}

bool replay(const std::filesystem::path& file) {
  const Outcome outcome = runIsolated(readSequence(file));
  std::cerr << outcome.output;
  std::cout << fmt::format("{} events: {}\n", outcome.tally.events, outcome.failure.value_or("all is well"));
  return !outcome.failure;
}

}  // namespace monkey
