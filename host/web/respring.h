#pragma once

#include <optional>
#include <string>

#include "host/web/listening_socket.h"

namespace host {

/// What a process passes on to the one that takes its place: the socket that it listens on, so that clients
/// find nobody else there in between, and the token, which it may have made up.
struct Inheritance {
  ListeningSocket socket;
  std::optional<std::string> token;
};

/// What this process has been left by one before it; nothing for a first one, or where it makes no sense. To
/// be asked once.
std::optional<Inheritance> takeInheritance();

/// Starts this program afresh in this process, with the same command line. Everything ends but the
/// inheritance; only a failure, thrown as Failure, comes back.
[[noreturn]] void respring(const Inheritance& inheritance, char** arguments);

}  // namespace host
