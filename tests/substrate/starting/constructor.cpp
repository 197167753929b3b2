#include <unistd.h>

#include <cstdlib>

/// A library that starts a process which stays, and stays itself where it is told to.
__attribute__((constructor)) static void start() {
  if (::fork() == 0 || std::getenv("STAYS")) {
    for (;;) ::pause();
  }
}
