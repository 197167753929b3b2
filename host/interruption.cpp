#include "host/interruption.h"

#include <csignal>

#include "host/failure.h"

namespace host {
namespace {

volatile std::sig_atomic_t signalled = 0;

}  // namespace

std::vector<int> interruptingSignals() {
  std::vector<int> result{SIGINT, SIGTERM};
  struct sigaction hangup {};
  sigaction(SIGHUP, nullptr, &hangup);
  if (hangup.sa_handler != SIG_IGN) result.push_back(SIGHUP);
  return result;
}

void catchInterruptions() {
  std::signal(SIGPIPE, SIG_IGN);
  struct sigaction action {};
  action.sa_handler = [](int) { signalled = 1; };
  action.sa_flags = static_cast<int>(SA_RESETHAND);  // Without SA_RESTART: waiting for a line ends too.
  for (const int each : interruptingSignals()) sigaction(each, &action, nullptr);
}

bool interrupted() { return signalled != 0; }

void stopIfInterrupted() {
  if (interrupted()) throw Failure("interrupted");
}

}  // namespace host
