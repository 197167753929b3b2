#include "monkey/shrink.h"

#include <algorithm>

#include "monkey/trial.h"

namespace monkey {
namespace {

constexpr int mostTrials = 800;

using Events = std::vector<std::string>;

Events without(const Events& events, std::size_t begin, std::size_t count) {
  Events rest(events.begin(), events.begin() + static_cast<std::ptrdiff_t>(begin));
  const std::size_t end = std::min(events.size(), begin + count);
  rest.insert(rest.end(), events.begin() + static_cast<std::ptrdiff_t>(end), events.end());
  return rest;
}

}  // namespace

Life shrink(Life life, const std::string& failure) {
  int trials = 0;
  const auto stillFails = [&](Life& candidate) {
    const Outcome outcome = tryLife(candidate);
    if (outcome.failure != failure) return false;
    candidate.events.resize(std::min<std::size_t>(candidate.events.size(), outcome.tally.events));
    return true;
  };
  // Ever smaller pieces are left out, from the front to the end.
  for (std::size_t piece = life.events.size() / 2; piece > 0; piece /= 2) {
    for (std::size_t begin = 0; begin < life.events.size() && trials < mostTrials; ++trials) {
      Life candidate{life.boot, without(life.events, begin, piece)};
      if (stillFails(candidate)) {
        life = std::move(candidate);
      } else {
        begin += piece;
      }
    }
  }
  return life;
}

}  // namespace monkey
