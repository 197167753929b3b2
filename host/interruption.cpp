#include "host/interruption.h"

#include <csignal>

namespace host {
namespace {

volatile std::sig_atomic_t signalled = 0;

}  // namespace

void catchInterruptions() {
  std::signal(SIGPIPE, SIG_IGN);
  struct sigaction action {};
  action.sa_handler = [](int) { signalled = 1; };
  action.sa_flags = static_cast<int>(SA_RESETHAND);  // Without SA_RESTART: waiting for a line ends too.
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
}

bool interrupted() { return signalled != 0; }

}  // namespace host
