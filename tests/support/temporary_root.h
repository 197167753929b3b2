#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include "platform/foundation/file_manager.h"

/// A test with a device root of its own, removed afterwards. Beside the root lies a folder that no device
/// path may reach.
class TemporaryRoot : public testing::Test {
 protected:
  TemporaryRoot() {
    std::string name = (std::filesystem::temp_directory_path() / "root-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no folder for the test");
    folder_ = std::filesystem::canonical(name);
    for (const auto& folder : {root(), outside()}) std::filesystem::create_directory(folder);
    files().setRoot(root());
  }
  ~TemporaryRoot() override { std::filesystem::remove_all(folder_); }

  std::filesystem::path root() const { return folder_ / "device"; }
  std::filesystem::path outside() const { return folder_ / "device-outside"; }
  static NSFileManager& files() { return NSFileManager::defaultManager(); }
  static NSData bytes(std::string_view text) { return NSData(text.begin(), text.end()); }

 private:
  std::filesystem::path folder_;
};
