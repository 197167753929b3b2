#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>

#include "monkey/event_sequence.h"

namespace monkey {

/// What a device has been through; for the reader of a run to judge what it was worth.
struct Tally {
  std::uint64_t events = 0, openings = 0, closings = 0, launchesBySwitcher = 0, launchesByIcon = 0,
                locksBySwitcher = 0, quitsBySwitcher = 0, turns = 0, looks = 0, looksAtUnchanged = 0;
  Tally& operator+=(const Tally& other);
};

struct Outcome {
  Tally tally;
  /// What went wrong, in words that are the same each time it does; nothing if nothing did.
  std::optional<std::string> failure;
  std::string output;  ///< What the process wrote to standard error: the report of a sanitizer, say.
};

/// A device that lives in a process of its own, since the switcher's state is the process's. So a crash, the
/// report of a sanitizer, a hang and an exit are failures like all others.
class IsolatedRun {
 public:
  /// Begins. No stretch of some dozen events may take longer than `patience`, in real seconds, nor may the
  /// boot. Throws std::system_error where the machine has no process left.
  IsolatedRun(const std::string& boot, const EventSource& events, unsigned patience);
  IsolatedRun(const IsolatedRun&) = delete;
  IsolatedRun& operator=(const IsolatedRun&) = delete;
  ~IsolatedRun();

  pid_t process() const { return process_; }
  /// Waits for the end. To be called once.
  Outcome wait();

  static constexpr unsigned usualPatience = 120;

 private:
  struct Shared;

  Shared* shared_;  // Memory that both processes see.
  int output_;      // The file that the child's standard error goes to.
  pid_t process_;
};

/// Runs a sequence and waits for its end.
Outcome runIsolated(const EventSequence& sequence, unsigned patience = IsolatedRun::usualPatience);

}  // namespace monkey
