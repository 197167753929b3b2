#include "host/standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

#include "host/failure.h"

namespace host {

void holdClosedStandardStreams() {
  for (const int each : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(each, F_GETFD) >= 0) continue;
    // The lowest free descriptor, which is this one; open the other way round, so that using it fails.
    open("/dev/null", each == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

void requireStandardInput() {
  if (read(STDIN_FILENO, nullptr, 0) < 0)
    throw Failure("standard input: " + std::generic_category().message(errno));
}

void print(std::ostream& standardOutput, std::string_view text) {
  standardOutput << text << std::flush;
  if (!standardOutput) throw Failure("standard output cannot be written");
}

}  // namespace host
