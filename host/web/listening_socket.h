#pragma once

namespace host {

/// A socket that listens: the operating system's number for it.
using ListeningSocket = int;

}  // namespace host
