#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/foundation/ns_data.h"

namespace host {

/// A file of this machine (not of the device) that something is written to; the path is taken as the shell
/// would, relative to the working directory. Every failure throws Failure with the path and the cause.
class MachineFile {
 public:
  /// What becomes of a file that is there already; a kept one is written on at its end.
  enum class Existing { Emptied, Kept };

  /// Makes the file where there is none.
  explicit MachineFile(std::filesystem::path path, Existing existing = Existing::Emptied);

  const std::filesystem::path& path() const { return path_; }
  void write(const NSData& data);
  void write(const std::string& text);

 private:
  void check();

  std::filesystem::path path_;
  std::ofstream stream_;
};

/// A text file of this machine, opened for reading. Throws Failure for one that cannot be read.
std::ifstream openMachineFile(const std::filesystem::path& path);

}  // namespace host
