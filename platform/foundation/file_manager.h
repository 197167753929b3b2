#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/ns_data.h"

/// The device's file system: absolute device paths under one root folder of the machine.
///
/// /var and /private/var are one folder. No path, by "..", by symbolic link or otherwise, leads outside the
/// root: such a path counts as missing.
class NSFileManager {
 public:
  static NSFileManager& defaultManager();

  /// Sets the folder that is the device's "/"; nothing resolves before that.
  void setRoot(std::filesystem::path root);
  const std::filesystem::path& root() const { return root_; }

  /// Where a device path lies on this machine; nothing when it would lead outside the root.
  std::optional<std::filesystem::path> resolve(std::string_view devicePath) const;

  bool fileExists(std::string_view devicePath) const;  ///< `fileExistsAtPath:`, files and folders alike.
  /// Names in a folder, sorted; empty when there is no such folder.
  std::vector<std::string> contentsOfDirectory(std::string_view devicePath) const;
  /// `contentsAtPath:`. Of regular files up to 64 MiB; nothing of anything else.
  std::optional<NSData> contents(std::string_view devicePath) const;
  /// The same into memory that is there already; false for nothing.
  bool read(std::string_view devicePath, NSData& contents) const;

  enum class Writing { Plain, Atomic };
  /// `writeToFile:atomically:`. Makes missing parent folders. Atomic: the old file or the new one stands
  /// whole, whatever happens. False on failure.
  bool write(std::string_view devicePath, const NSData& data, Writing writing);

 private:
  /// Relative to the root, without "." and ".."; nothing for what is no path of the device.
  std::optional<std::string> pathBelowRoot(std::string_view devicePath) const;
  /// The number of a file descriptor, which the caller owns; negative when there is nothing to open. With
  /// O_CREAT the file is made where its folder is there.
  int open(std::string_view devicePath, int flags) const;

  std::filesystem::path root_;
};
