#pragma once

#include <filesystem>
#include <string>

/// Loads a library in a process of its own, which ends at once: what its constructors throw cannot be caught,
/// and a damaged file or constructor ends the process that loads it. Internal.
///
/// The cause why it cannot be loaded, or nothing where it can.
std::string rehearseLoading(const std::filesystem::path& library);
