#pragma once

#include <ostream>
#include <string_view>

namespace host {

/// Has standard input, output and error be descriptors of their own even where the process was started with
/// some of them closed, or the next files opened would be taken for them. Reading or writing these fails.
void holdClosedStandardStreams();

/// Throws Failure when standard input cannot be read at all.
void requireStandardInput();

/// Writes at once. Throws Failure when that fails.
void print(std::ostream& standardOutput, std::string_view text);

}  // namespace host
