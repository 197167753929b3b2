#include "platform/foundation/file_manager.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

#include "tests/support/temporary_root.h"

namespace fs = std::filesystem;

namespace {

using Writing = NSFileManager::Writing;
using FileManager = TemporaryRoot;

TEST_F(FileManager, NoPathLeadsOutsideTheRoot) {
  const NSData secret = bytes("secret");
  std::ofstream(outside() / "secret") << "secret";
  fs::create_symlink(outside(), root() / "link");
  fs::create_symlink("../device-outside/new", root() / "dangling");
  for (std::string_view path : {"", "../device-outside/secret", "/../device-outside/secret",
                                "/a/../../device-outside/secret", "/link/secret", "/link/new", "/dangling"}) {
    SCOPED_TRACE(path);
    EXPECT_NE(files().contents(path), secret);
    for (Writing writing : {Writing::Plain, Writing::Atomic}) files().write(path, bytes("x"), writing);
  }
  EXPECT_TRUE(files().contentsOfDirectory("/link").empty());
  EXPECT_EQ(std::distance(fs::directory_iterator(outside()), fs::directory_iterator()), 1);
  EXPECT_EQ(fs::file_size(outside() / "secret"), secret.size());
}

TEST_F(FileManager, VarAndPrivateVarAreOneFolder) {
  ASSERT_TRUE(files().write("/private/var/mobile/a", bytes("a"), Writing::Plain));
  ASSERT_TRUE(files().write("/private/various/b", bytes("b"), Writing::Plain));
  EXPECT_EQ(files().contents("/var/mobile/a"), bytes("a"));
  EXPECT_EQ(files().contents("/private/./var//mobile/a"), bytes("a"));
  EXPECT_EQ(files().contentsOfDirectory("/private/"), std::vector<std::string>{"various"});
}

TEST_F(FileManager, WritingReplacesTheWholeFileAlsoThroughALink) {
  fs::create_symlink("a", root() / "link");
  for (Writing writing : {Writing::Plain, Writing::Atomic}) {
    ASSERT_TRUE(files().write("/a/b/file", bytes("a longer text"), writing));
    ASSERT_TRUE(files().write("/link/b/file", bytes("short"), writing));
    EXPECT_EQ(files().contents("/a/b/file"), bytes("short"));
    for (auto path : {"/a/b", "/a/b/file/below"}) EXPECT_FALSE(files().write(path, bytes("x"), writing));
  }
  EXPECT_EQ(files().contentsOfDirectory("/a/b"), std::vector<std::string>{"file"});
  fs::remove_all(root());
  EXPECT_FALSE(files().write("/file", bytes("x"), Writing::Atomic) || fs::exists(root()));
}

TEST_F(FileManager, WhatIsNoFileIsNeitherReadNorWrittenNorWaitedFor) {
  fs::create_directory(root() / "folder");
  ASSERT_EQ(mkfifo((root() / "pipe").c_str(), 0600), 0);
  std::ofstream(root() / "huge") << "x";
  fs::resize_file(root() / "huge", std::uintmax_t{1} << 40);
  for (const char* path : {"/folder", "/pipe", "/huge"}) EXPECT_FALSE(files().contents(path)) << path;
  for (Writing writing : {Writing::Plain, Writing::Atomic}) EXPECT_FALSE(files().write("/pipe", {}, writing));
}

TEST_F(FileManager, AnAtomicWriteThatFailsLeavesTheOldFile) {
  ASSERT_TRUE(files().write("/file", bytes("old"), Writing::Atomic));
  rlimit previous{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &previous), 0);
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit tiny = {1024, previous.rlim_max};
  setrlimit(RLIMIT_FSIZE, &tiny);
  const bool written = files().write("/file", NSData(4096), Writing::Atomic);
  setrlimit(RLIMIT_FSIZE, &previous);
  EXPECT_FALSE(written);
  EXPECT_EQ(files().contents("/file"), bytes("old"));
  EXPECT_EQ(files().contentsOfDirectory("/"), std::vector<std::string>{"file"});
}

}  // namespace
