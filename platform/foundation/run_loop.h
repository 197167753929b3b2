#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <utility>

/// Seconds since the process's run loop began.
using CFTimeInterval = double;

/// The main run loop: the only clock of the process, and the order in which timed work happens.
///
/// Its time moves only when it is told: by a script, by a test, or by a server as real time passes. Work runs
/// in time order, ties in order of scheduling; while a piece of work runs, now() is the time that it was
/// scheduled for.
class RunLoop {
 public:
  using Token = std::uint64_t;

  /// The process's run loop.
  static RunLoop& main();

  CFTimeInterval now() const { return now_; }

  /// Runs `work` at `time` (a time already past means: at the next turn). The token cancels it.
  Token schedule(CFTimeInterval time, std::function<void()> work);
  Token scheduleAfter(CFTimeInterval delay, std::function<void()> work) {
    return schedule(now_ + delay, std::move(work));
  }

  /// Forgets scheduled work. A token whose work has run, or was cancelled, is ignored.
  void cancel(Token token);

  /// Runs everything due up to `time`, including what that work schedules, then sets now() to `time`.
  /// A time before now() counts as now().
  void advanceTo(CFTimeInterval time);
  void advanceBy(CFTimeInterval seconds) { advanceTo(now_ + seconds); }

  bool idle() const { return pending_.empty(); }
  /// When the next piece of work is due; call only when not idle().
  CFTimeInterval nextDue() const { return pending_.begin()->first.first; }

 private:
  using Key = std::pair<CFTimeInterval, Token>;
  std::map<Key, std::function<void()>> pending_;
  std::map<Token, CFTimeInterval> due_;
  Token lastToken_ = 0;
  CFTimeInterval now_ = 0;
};
