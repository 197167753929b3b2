#include "monkey/isolated_run.h"

#include <fmt/format.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <system_error>

#include "monkey/heap.h"
#include "monkey/invariant_violation.h"
#include "monkey/invariants.h"
#include "monkey/performer.h"
#include "platform/foundation/trace.h"
#include "switcher/shared_state.h"

namespace monkey {
namespace {

constexpr std::uint64_t eventsInAStretch = 64;

// The heap at the end of a run against that after its first events, when everything has been used once.
constexpr std::uint64_t eventsToSettle = 3000;
constexpr std::size_t largestGrowth = 24 << 20;

template <class Number>
Number checked(Number result, const char* what) {
  if (result < 0) throw std::system_error(errno, std::generic_category(), what);
  return result;
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

bool isTurn(const Event& event) {
  const auto* command = std::get_if<host::ScriptCommand>(&event);
  return command && std::holds_alternative<host::RotateCommand>(*command);
}

/// A device, what happens to it, and what must hold of it.
class Life {
 public:
  Life(const BootEvent& boot, Tally& tally)
      : performer_(boot), invariants_(performer_.device().springBoard()), tally_(tally) {}

  void go(const Event& event) {
    ++tally_.events;
    const bool wasOpen = vistrel::switcherOpen;
    performer_.perform(event);
    invariants_.check(event);
    tally_.openings += !wasOpen && vistrel::switcherOpen;
    tally_.closings += wasOpen && !vistrel::switcherOpen;
    tally_.turns += isTurn(event);
    tally_.looks = performer_.watch().looks();
    tally_.looksAtUnchanged = performer_.watch().looksAtUnchanged();
    if (tally_.events == eventsToSettle) settled_ = bytesAllocated();
  }

  void end() const {
    if (tally_.events > eventsToSettle && bytesAllocated() > settled_ + largestGrowth)
      throw InvariantViolation("the heap does not grow");
  }

 private:
  Performer performer_;
  Invariants invariants_;
  Tally& tally_;
  std::size_t settled_ = 0;  // Bytes of the heap.
};

std::string readAll(int file) {
  std::string text;
  std::array<char, 4096> chunk;
  ::lseek(file, 0, SEEK_SET);
  for (ssize_t count; (count = ::read(file, chunk.data(), chunk.size())) > 0;)
    text.append(chunk.data(), static_cast<std::size_t>(count));
  return text;
}

/// What a sanitizer has found, without what changes from run to run.
std::optional<std::string> sanitizerFinding(std::string_view output) {
  constexpr std::string_view mark = "SUMMARY: ";
  const auto begin = output.rfind(mark);
  if (begin == output.npos) return std::nullopt;
  const std::string_view line = output.substr(begin, output.find('\n', begin) - begin);
  return std::string(line.find("leaked") == line.npos ? line : "memory is leaked");
}

}  // namespace

Tally& Tally::operator+=(const Tally& other) {
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
  return *this;
}

struct IsolatedRun::Shared {
  Tally tally;
  char failure[256] = {};  // Zero-terminated; empty for none.

  /// In the child. A failure is written down while the device stands: taking it down may fail too.
  void live(const std::string& boot, const EventSource& events, unsigned patience) {
    countTraces(tally);
    alarm(patience);
    const auto attempt = [this](const auto& step) {
      try {
        step();
        return true;
      } catch (const InvariantViolation& violation) {
        fail(fmt::format("no longer holds: {}", violation.what()));
      } catch (const std::exception& exception) {
        fail(fmt::format("thrown: {}", exception.what()));
      }
      return false;
    };
    std::optional<Life> life;
    bool goesOn = attempt([&] { life.emplace(parseBoot(boot), tally); });
    while (goesOn) {
      const auto line = events();
      if (!line) break;
      if (tally.events % eventsInAStretch == 0) alarm(patience);
      goesOn = attempt([&] {
        if (const auto event = parseEvent(*line)) life->go(*event);
      });
    }
    if (goesOn) attempt([&] { life->end(); });
  }

  void fail(const std::string& text) { text.copy(failure, sizeof failure - 1); }
};

IsolatedRun::IsolatedRun(const std::string& boot, const EventSource& events, unsigned patience) {
  void* memory = mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "mmap");
  shared_ = new (memory) Shared();
  output_ = checked(memfd_create("output", MFD_CLOEXEC), "memfd_create");
  std::fflush(nullptr);
  process_ = checked(fork(), "fork");
  if (process_ > 0) return;
  prctl(PR_SET_PDEATHSIG, SIGKILL);  // Nobody lives on alone.
  dup2(output_, STDERR_FILENO);
  shared_->live(boot, events, patience);
  std::exit(shared_->failure[0] ? EXIT_FAILURE : EXIT_SUCCESS);  // And not _exit: leaks are looked for now.
}

IsolatedRun::~IsolatedRun() {
  ::close(output_);
  munmap(shared_, sizeof(Shared));
}

Outcome IsolatedRun::wait() {
  int status = 0;
  while (waitpid(process_, &status, 0) < 0 && errno == EINTR) continue;
  Outcome outcome{shared_->tally, std::nullopt, readAll(output_)};
  const int signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
  if (shared_->failure[0]) {
    outcome.failure = shared_->failure;
  } else if (signal == SIGALRM) {
    outcome.failure = "hangs";
  } else if (const auto finding = sanitizerFinding(outcome.output)) {
    outcome.failure = finding;
  } else if (signal) {
    outcome.failure = fmt::format("killed by signal {} ({})", signal, strsignal(signal));
  } else if (WEXITSTATUS(status) != EXIT_SUCCESS) {
    outcome.failure = fmt::format("exited with {}", WEXITSTATUS(status));
  }
  return outcome;
}

Outcome runIsolated(const EventSequence& sequence, unsigned patience) {
  auto next = sequence.events.begin();
  const auto source = [&] { return next == sequence.events.end() ? std::nullopt : std::optional(*next++); };
  return IsolatedRun(sequence.boot, source, patience).wait();
}

}  // namespace monkey
