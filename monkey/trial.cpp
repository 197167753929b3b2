#include "monkey/trial.h"

#include <fcntl.h>
#include <malloc.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <system_error>

#include <fmt/format.h>

#include "monkey/broken.h"
#include "monkey/invariants.h"
#include "monkey/performer.h"
#include "platform/foundation/trace.h"
#include "switcher/shared_state.h"

namespace monkey {
namespace {

constexpr unsigned longestEvent = 120;  // Real seconds; an event takes a small part of one. Longer is a hang.
constexpr int eventsBetweenAlarms = 64;

// Memory in use at the end of a life against that after its first events, when everything has been used once.
constexpr std::uint64_t eventsToSettle = 3000;
constexpr std::size_t largestGrowth = 24 << 20;

std::size_t memoryInUse() {
  const auto info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

void countTraces(Tally& tally) {
  setTraceSink([&tally](std::string_view event, const TraceFields& fields) {
    const auto by = [&fields](std::string_view who) {
      for (const auto& [name, value] : fields)
        if (name == "by" && std::get<std::string>(value) == who) return true;
      return false;
    };
    if (event == "app-activated") ++(by("switcher") ? tally.launchesBySwitcher : tally.launchesByIcon);
    if (event == "device-locked" && by("library")) ++tally.locksBySwitcher;
    if (event == "front-app-quit") ++tally.quitsBySwitcher;
  });
}

}  // namespace

void Tally::add(const Tally& other) {
  events += other.events;
  openings += other.openings;
  closings += other.closings;
  launchesBySwitcher += other.launchesBySwitcher;
  launchesByIcon += other.launchesByIcon;
  locksBySwitcher += other.locksBySwitcher;
  quitsBySwitcher += other.quitsBySwitcher;
  turns += other.turns;
  looks += other.looks;
  looksAtUnchanged += other.looksAtUnchanged;
}

struct Trial::Shared {
  Tally tally;
  char failure[256];  // Zero-terminated; empty for none.

  void fail(const std::string& text) { text.copy(failure, sizeof failure - 1); }
};

namespace {

void live(const std::string& bootLine, const EventSource& events, Tally& tally) {
  countTraces(tally);
  Performer performer(bootLine);
  Invariants invariants(performer.device().springBoard());
  invariants.check(bootLine);
  std::size_t settled = 0;
  while (const auto event = events()) {
    if (tally.events++ % eventsBetweenAlarms == 0) alarm(longestEvent);
    const bool wasOpen = vistrel::switcherOpen;
    performer.perform(*event);
    invariants.check(*event);
    tally.openings += !wasOpen && vistrel::switcherOpen;
    tally.closings += wasOpen && !vistrel::switcherOpen;
    tally.turns += event->starts_with("rotate");
    tally.looks = performer.watch().looks();
    tally.looksAtUnchanged = performer.watch().looksAtUnchanged();
    if (tally.events == eventsToSettle) settled = memoryInUse();
  }
  if (settled > 0 && memoryInUse() > settled + largestGrowth) throw Broken("memory does not grow");
}

}  // namespace

Trial::Trial(const std::string& bootLine, EventSource events, bool quiet)
    : shared_(static_cast<Shared*>(
          mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {
  std::fflush(nullptr);
  process_ = shared_ == MAP_FAILED ? -1 : fork();
  if (process_ < 0) throw std::system_error(errno, std::generic_category(), "a process for a device");
  if (process_ > 0) return;
  if (quiet) dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
  int code = EXIT_SUCCESS;
  try {
    live(bootLine, events, shared_->tally);
  } catch (const Broken& broken) {
    shared_->fail(fmt::format("no longer holds: {}", broken.what()));
    code = EXIT_FAILURE;
  } catch (const std::exception& exception) {
    shared_->fail(fmt::format("thrown: {}", exception.what()));
    code = EXIT_FAILURE;
  }
  std::exit(code);  // And not _exit: leaks are looked for at the end.
}

Trial::~Trial() { munmap(shared_, sizeof(Shared)); }

Outcome Trial::outcome(int status) const {
  Outcome outcome{shared_->tally, std::nullopt};
  if (shared_->failure[0]) {
    outcome.failure = shared_->failure;
  } else if (WIFSIGNALED(status)) {
    outcome.failure = fmt::format("killed by signal {} ({})", WTERMSIG(status), strsignal(WTERMSIG(status)));
  } else if (WEXITSTATUS(status) != EXIT_SUCCESS) {
    outcome.failure = fmt::format("exited with {}", WEXITSTATUS(status));
  }
  return outcome;
}

Outcome tryLife(const Life& life) {
  auto next = life.events.begin();
  Trial trial(
      life.boot, [&]() { return next == life.events.end() ? std::nullopt : std::optional(*next++); }, true);
  int status = 0;
  while (waitpid(trial.process(), &status, 0) < 0 && errno == EINTR) continue;
  return trial.outcome(status);
}

}  // namespace monkey
