#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "monkey/life.h"

namespace monkey {

/// What a device has been through; for the reader of a run to judge what it was worth.
struct Tally {
  std::uint64_t events = 0, openings = 0, closings = 0, launchesBySwitcher = 0, launchesByIcon = 0,
                locksBySwitcher = 0, quitsBySwitcher = 0, turns = 0, looks = 0, looksAtUnchanged = 0;
  void add(const Tally& other);
};

struct Outcome {
  Tally tally;
  /// What broke, in words that are the same each time it does; nothing if nothing has.
  std::optional<std::string> failure;
};

/// Where events come from: each call gives the next, nothing at the end.
using EventSource = std::function<std::optional<std::string>()>;

/// Boots a device in a process of its own, since the switcher's state is the process's, and has it live. So a
/// crash, a sanitizer's report, a hang and an exit are failures like all others. `quiet` drops what the child
/// says.
class Trial {
 public:
  Trial(const std::string& bootLine, EventSource events, bool quiet);
  Trial(const Trial&) = delete;
  Trial& operator=(const Trial&) = delete;
  ~Trial();

  int process() const { return process_; }
  /// Once the process has ended, with the status that waiting for it gave.
  Outcome outcome(int status) const;

 private:
  struct Shared;
  int process_;
  Shared* shared_;  // Memory that the child writes.
};

/// Runs a life to its end or failure, and waits for it.
Outcome tryLife(const Life& life);

}  // namespace monkey
