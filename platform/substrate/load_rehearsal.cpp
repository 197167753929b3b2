#include "platform/substrate/load_rehearsal.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <limits.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <exception>
#include <string_view>

#include "platform/foundation/descriptor.h"
#include "platform/foundation/trace.h"

namespace {

constexpr std::string_view loaded = "loaded";  // As a verdict; any other is a cause.
int verdictPipe;                               // Of the rehearsing process.

[[noreturn]] void endWith(std::string_view verdict) {
  verdict = verdict.substr(0, PIPE_BUF);  // What a pipe takes at once.
  const ssize_t written = ::write(verdictPipe, verdict.data(), verdict.size());
  ::_exit(written < 0 ? EXIT_FAILURE : EXIT_SUCCESS);
}

[[noreturn]] void endWithException() {
  try {
    if (const auto thrown = std::current_exception()) std::rethrow_exception(thrown);
  } catch (const std::exception& exception) {
    endWith(std::string("has thrown: ") + exception.what());
  } catch (...) {
  }
  endWith("has thrown");
}

/// Drops what the library prints, and leaves by no exception.
[[noreturn]] void rehearse(const std::filesystem::path& library) noexcept {
  ::setpgid(0, 0);
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);  // A group of its own is not interrupted with its parent's.
  setTraceSink({});
  const int nowhere = ::open("/dev/null", O_RDWR | O_CLOEXEC);
  for (int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::dup2(nowhere, stream);
  const rlimit noDump{};
  ::setrlimit(RLIMIT_CORE, &noDump);
  std::set_terminate(endWithException);
  // The linker's function is declared to throw nothing, and compilers believe it: no handler would be kept.
  void* (*volatile load)(const char*, int) = ::dlopen;
  try {
    if (load(library.c_str(), RTLD_NOW | RTLD_LOCAL)) endWith(loaded);
  } catch (...) {
    endWithException();
  }
  const char* reason = ::dlerror();
  endWith(reason ? reason : "cannot be loaded");
}

/// Waits until the descriptor has something to tell; false when that takes longer than `longest`.
bool becomesReady(const Descriptor& descriptor, std::chrono::milliseconds longest) {
  using std::chrono::steady_clock, std::chrono::milliseconds;
  const auto deadline = steady_clock::now() + longest;
  pollfd waiting = {descriptor.number(), POLLIN, 0};
  int ready = 0;
  do {
    const auto left = std::chrono::ceil<milliseconds>(deadline - steady_clock::now());
    ready = ::poll(&waiting, 1, static_cast<int>(std::max(left, milliseconds(0)).count()));
  } while (ready < 0 && errno == EINTR);
  return ready > 0;
}

/// Ends what is left of the process and of its group, and tells its status.
int end(pid_t process) {
  for (pid_t target : {process, -process}) ::kill(target, SIGKILL);
  int status = 0;
  while (::waitpid(process, &status, 0) < 0 && errno == EINTR) continue;
  return status;
}

std::string readVerdict(const Descriptor& pipe) {
  std::array<char, PIPE_BUF> text;
  const ssize_t count = ::read(pipe.number(), text.data(), text.size());
  return std::string(text.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
}

}  // namespace

std::string rehearseLoading(const std::filesystem::path& library, std::chrono::milliseconds longest) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return {};
  const Descriptor reading(ends[0]), writing(ends[1]);
  verdictPipe = writing.number();
  const pid_t process = ::fork();
  if (process < 0) return {};
  if (process == 0) rehearse(library);
  ::setpgid(process, process);  // Here as well, for it may not have come to that yet.
  // Its exit counts, not the pipe's end: a process that it has started would hold that open.
  const Descriptor running(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
  const bool isOver = running.isOpen() && becomesReady(running, longest);
  const int status = end(process);
  if (!running.isOpen()) return {};
  if (!isOver) return "does not finish loading";
  const std::string verdict = readVerdict(reading);
  if (verdict == loaded) return {};
  if (!verdict.empty()) return verdict;
  return std::string("ends the process that loads it") +
         (WIFSIGNALED(status) ? std::string(": ") + ::strsignal(WTERMSIG(status)) : "");
}
