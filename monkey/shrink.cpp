#include "monkey/shrink.h"

#include <algorithm>
#include <chrono>

#include "monkey/isolated_run.h"

namespace monkey {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int mostRuns = 800;
constexpr std::chrono::minutes longest{5};
constexpr unsigned patience = 10;  // Seconds: what hangs does so in every run.

using Events = std::vector<std::string>;

Events without(const Events& events, std::size_t begin, std::size_t count) {
  const auto at = [&](std::size_t place) {
    return events.begin() + static_cast<std::ptrdiff_t>(std::min(place, events.size()));
  };
  Events rest(events.begin(), at(begin));
  rest.insert(rest.end(), at(begin + count), events.end());
  return rest;
}

/// The sequence up to the event at which it fails, if it does so with `failure`.
std::optional<EventSequence> failing(EventSequence sequence, const std::string& failure) {
  const Outcome outcome = runIsolated(sequence, patience);
  if (outcome.failure != failure) return std::nullopt;
  sequence.events.resize(std::min<std::size_t>(sequence.events.size(), outcome.tally.events));
  return sequence;
}

}  // namespace

std::optional<EventSequence> shrink(EventSequence sequence, const std::string& failure) {
  const auto end = Clock::now() + longest;
  auto shortest = failing(std::move(sequence), failure);
  if (!shortest) return std::nullopt;
  // Ever smaller pieces are left out, from the front to the end.
  int runs = 1;
  for (std::size_t piece = shortest->events.size() / 2; piece > 0; piece /= 2) {
    for (std::size_t begin = 0; begin < shortest->events.size(); ++runs) {
      if (runs >= mostRuns || Clock::now() >= end) return shortest;
      auto shorter = failing({shortest->boot, without(shortest->events, begin, piece)}, failure);
      if (shorter) {
        shortest = std::move(shorter);
      } else {
        begin += piece;
      }
    }
  }
  return shortest;
}

}  // namespace monkey
