#pragma once

#include <chrono>
#include <filesystem>
#include <string>

/// How long a library's constructors may take.
constexpr std::chrono::milliseconds longestLoading = std::chrono::seconds(10);

/// Loads a library in a process of its own, which ends at once: what its constructors throw cannot be caught,
/// and a damaged file or constructor ends the process that loads it, or keeps it for ever. Internal.
///
/// The constructors of a library that is loaded afterwards so have run twice: what they print is dropped the
/// first time, what they do to files is not. Processes that they have started in the rehearsal end with it.
///
/// The cause why the library cannot be loaded; nothing where it can, or where this machine lets nothing be
/// rehearsed.
std::string rehearseLoading(const std::filesystem::path& library,
                            std::chrono::milliseconds longest = longestLoading);
