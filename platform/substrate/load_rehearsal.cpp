#include "platform/substrate/load_rehearsal.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <exception>
#include <string_view>

#include "platform/foundation/trace.h"

namespace {

constexpr std::string_view loaded = "loaded";  // As a verdict; any other is a cause.
int verdictPipe;                               // Of the rehearsing process.

[[noreturn]] void endWith(std::string_view verdict) {
  // The verdict is shorter than what a pipe takes at once; with its end the process has said all.
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

/// Nothing that it does or says on the way is to be seen outside, and no exception leads out of it.
[[noreturn]] void rehearse(const std::filesystem::path& library) noexcept {
  setTraceSink({});
  const int nowhere = ::open("/dev/null", O_RDWR | O_CLOEXEC);
  for (int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::dup2(nowhere, stream);
  const rlimit noDump{};
  ::setrlimit(RLIMIT_CORE, &noDump);
  std::set_terminate(endWithException);
  if (::dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL)) endWith(loaded);
  const char* reason = ::dlerror();
  endWith(reason ? reason : "cannot be loaded");
}

std::string readAll(int pipe) {
  std::string text;
  std::array<char, 4096> chunk;
  for (ssize_t count; (count = ::read(pipe, chunk.data(), chunk.size())) != 0;) {
    if (count > 0) text.append(chunk.data(), static_cast<std::size_t>(count));
    if (count < 0 && errno != EINTR) break;
  }
  return text;
}

}  // namespace

std::string rehearseLoading(const std::filesystem::path& library) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) return {};  // Without means to rehearse it has to do without.
  verdictPipe = ends[1];
  const pid_t process = ::fork();
  if (process == 0) rehearse(library);
  ::close(ends[1]);
  const std::string verdict = process > 0 ? readAll(ends[0]) : "";
  ::close(ends[0]);
  int status = 0;
  while (process > 0 && ::waitpid(process, &status, 0) < 0 && errno == EINTR) continue;
  if (process < 0 || verdict == loaded) return {};
  if (!verdict.empty()) return verdict;
  return std::string("ends the process that loads it") +
         (WIFSIGNALED(status) ? std::string(": ") + ::strsignal(WTERMSIG(status)) : "");
}
