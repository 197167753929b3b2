#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

namespace draw_resources {

/// A file or folder that could not be written; what() names the path and the cause.
class OutputError : public std::runtime_error {
 public:
  OutputError(const std::filesystem::path& path, const std::string& cause)
      : std::runtime_error(path.string() + ": " + cause) {}
};

/// The folder that all output goes to.
class OutputRoot {
 public:
  explicit OutputRoot(std::filesystem::path root) : root_(std::move(root)) {}

  /// Writes a whole file, making its folders; throws OutputError.
  void write(const std::filesystem::path& relative, const std::string& bytes) const;

 private:
  std::filesystem::path root_;
};

}  // namespace draw_resources
