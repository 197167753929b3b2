#include "platform/foundation/file_manager.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "platform/foundation/descriptor.h"

namespace fs = std::filesystem;

namespace {

constexpr std::string_view privateVar = "/private/var";
constexpr std::string_view var = "/var";
constexpr mode_t fileMode = 0644;
constexpr off_t largestFile = 64 << 20;  // Bytes; no file of the device comes near it.
constexpr std::string_view temporaryPrefix = ".write-";
constexpr std::string_view temporarySuffix = "XXXXXX";  // Which mkostemp() replaces.
constexpr int mostTemporaries = 10;                     // Of one write; a second one is rare.
constexpr int openFlags = O_CLOEXEC | O_NONBLOCK;       // Not waiting for a pipe's other end.
constexpr int safeOpenFlags = openFlags | O_NOFOLLOW;

/// The one spelling of a device path: no "." and "..", no doubled or trailing slash, /var for /private/var.
std::string standardizedPath(std::string_view devicePath) {
  const auto holds = [&](std::string_view part) { return devicePath.find(part) != std::string_view::npos; };
  std::string path(devicePath);
  if (holds("/.") || holds("//") || devicePath.ends_with('/')) {
    fs::path normal = fs::path(devicePath).lexically_normal();
    if (!normal.has_filename()) normal = normal.parent_path();
    path = normal.string();
  }
  const bool isPrivate =
      path.starts_with(privateVar) && (path.size() == privateVar.size() || path[privateVar.size()] == '/');
  if (isPrivate) path.replace(0, privateVar.size(), var);
  return path;
}

bool liesWithin(const fs::path& path, const fs::path& folder) {
  return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

/// True when a link is left in a path below `folder` that has been made canonical: a link that leads to
/// nothing yet, and would lead outside once something is written through it.
bool hasDanglingLink(fs::path path, const fs::path& folder) {
  std::error_code error;
  for (; path != folder && path.has_relative_path(); path = path.parent_path()) {
    if (fs::is_symlink(fs::symlink_status(path, error))) return true;
  }
  return false;
}

/// Opens a path without any link in it, the short way. Where there is one the number is negative, and errno
/// anything but ENOENT; so it is where the system does not know this way.
int openWithoutLinks(const std::string& path, int flags) {
  open_how how{};
  how.flags = std::uint64_t(flags);
  if (flags & O_CREAT) how.mode = fileMode;
  how.resolve = RESOLVE_NO_SYMLINKS;
  return int(::syscall(SYS_openat2, AT_FDCWD, path.c_str(), &how, sizeof how));
}

/// Removes what atomic writes have left that were killed: temporary files that nobody holds any more.
void removeAbandoned(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    if (!entry->path().filename().string().starts_with(temporaryPrefix)) continue;
    const Descriptor file(::open(entry->path().c_str(), O_RDONLY | safeOpenFlags));
    if (file.isOpen() && file.lock()) ::unlink(entry->path().c_str());
  }
}

/// Holds a new temporary file, so that no other process takes it for abandoned; false when one has done so
/// already. Where files cannot be locked none is ever taken.
bool hold(const Descriptor& file, const fs::path& temporary) {
  const bool isTaken = !file.lock() && errno == EWOULDBLOCK;
  return !isTaken && file.isAt(temporary);
}

/// Writes the temporary file and gives it the name `path`; removes it where that fails.
bool replace(const fs::path& path, const Descriptor& file, const fs::path& temporary, const NSData& data) {
  const bool replaced = file.write(data) && ::fchmod(file.number(), fileMode) == 0 && file.sync() &&
                        ::rename(temporary.c_str(), path.c_str()) == 0;
  if (!replaced) {
    ::unlink(temporary.c_str());
    return false;
  }
  // The new name has to be on the disk too. Where a folder cannot be synced the file stands all the same.
  const Descriptor folder(::open(path.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.isOpen()) folder.sync();
  return true;
}

bool writeAtomically(const fs::path& path, const NSData& data) {
  removeAbandoned(path.parent_path());
  for (int count = 0; count < mostTemporaries; ++count) {
    std::string temporary = (path.parent_path() / temporaryPrefix).concat(temporarySuffix).string();
    const Descriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!file.isOpen()) return false;
    if (hold(file, temporary)) return replace(path, file, temporary, data);
  }
  return false;
}

}  // namespace

NSFileManager& NSFileManager::defaultManager() {
  static auto& manager = *new NSFileManager();  // Files may be written to the very end of the process.
  return manager;
}

void NSFileManager::setRoot(fs::path root) {
  std::error_code error;
  root_ = root.empty() ? root : fs::weakly_canonical(fs::absolute(root, error), error);
  if (!root_.has_filename()) root_ = root_.parent_path();
}

std::optional<std::string> NSFileManager::pathBelowRoot(std::string_view devicePath) const {
  const bool isAbsolute = devicePath.starts_with('/');
  const bool holdsNul = devicePath.find('\0') != std::string_view::npos;
  if (root_.empty() || !isAbsolute || holdsNul) return std::nullopt;
  const std::string path = standardizedPath(devicePath);
  return path.substr(std::min(path.find_first_not_of('/'), path.size()));
}

std::optional<fs::path> NSFileManager::resolve(std::string_view devicePath) const {
  const auto path = pathBelowRoot(devicePath);
  if (!path) return std::nullopt;
  std::error_code error;
  const fs::path real = fs::weakly_canonical(root_ / *path, error);
  if (error || !liesWithin(real, root_) || hasDanglingLink(real, root_)) return std::nullopt;
  return real;
}

int NSFileManager::open(std::string_view devicePath, int flags) const {
  const auto path = pathBelowRoot(devicePath);
  if (!path) return -1;
  const int number = openWithoutLinks(root_.native() + '/' + *path, flags);
  if (number >= 0 || errno == ENOENT) return number;
  const auto real = resolve(devicePath);
  return real ? ::open(real->c_str(), flags | O_NOFOLLOW, fileMode) : -1;
}

bool NSFileManager::fileExists(std::string_view devicePath) const {
  const auto path = resolve(devicePath);
  std::error_code error;
  return path && fs::exists(*path, error);
}

std::vector<std::string> NSFileManager::contentsOfDirectory(std::string_view devicePath) const {
  std::vector<std::string> names;
  const auto path = resolve(devicePath);
  if (!path) return names;
  std::error_code error;
  for (fs::directory_iterator entry(*path, error), end; !error && entry != end; entry.increment(error)) {
    names.push_back(entry->path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::optional<NSData> NSFileManager::contents(std::string_view devicePath) const {
  NSData data;
  return read(devicePath, data) ? std::optional(std::move(data)) : std::nullopt;
}

bool NSFileManager::read(std::string_view devicePath, NSData& contents) const {
  return Descriptor(open(devicePath, O_RDONLY | openFlags)).read(contents, largestFile);
}

bool NSFileManager::write(std::string_view devicePath, const NSData& data, Writing writing) {
  const auto path = resolve(devicePath);
  std::error_code error;
  const bool isBelowRoot =
      path && *path != root_ && fs::is_directory(root_, error);  // It may have been removed.
  if (!isBelowRoot) return false;
  const fs::file_status status = fs::status(*path, error);
  if (fs::exists(status) && !fs::is_regular_file(status)) return false;
  fs::create_directories(path->parent_path(), error);
  if (writing == Writing::Atomic) return writeAtomically(*path, data);
  return Descriptor(open(devicePath, O_WRONLY | O_CREAT | openFlags)).replaceContents(data);
}
