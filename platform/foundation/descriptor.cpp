#include "platform/foundation/descriptor.h"

#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

Descriptor::~Descriptor() {
  if (isOpen()) ::close(number_);
}

bool Descriptor::sync() const { return ::fsync(number_) == 0; }

bool Descriptor::lock() const { return ::flock(number_, LOCK_EX | LOCK_NB) == 0; }

bool Descriptor::isAt(const std::filesystem::path& path) const {
  struct stat own {
  }, its{};
  return ::fstat(number_, &own) == 0 && ::lstat(path.c_str(), &its) == 0 && own.st_dev == its.st_dev &&
         own.st_ino == its.st_ino;
}

bool Descriptor::read(NSData& data, off_t largest) const {
  struct stat status {};
  if (!isOpen() || ::fstat(number_, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size > largest)
    return false;
  data.resize(static_cast<std::size_t>(status.st_size));
  for (std::size_t taken = 0; taken < data.size();) {
    const ssize_t count = ::read(number_, data.data() + taken, data.size() - taken);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    if (count == 0) data.resize(taken);  // It has been cut meanwhile.
    taken += static_cast<std::size_t>(count);
  }
  return true;
}

bool Descriptor::write(const NSData& data) const {
  for (std::size_t written = 0; written < data.size();) {
    const ssize_t count = ::write(number_, data.data() + written, data.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    written += static_cast<std::size_t>(count);
  }
  return true;
}

bool Descriptor::replaceContents(const NSData& data) const {
  struct stat status {};
  if (!isOpen() || ::fstat(number_, &status) != 0 || !S_ISREG(status.st_mode)) return false;
  const bool written = write(data);
  const off_t end = ::lseek(number_, 0, SEEK_CUR);
  const bool isLonger = status.st_size > end;
  return (!isLonger || ::ftruncate(number_, end) == 0) && written;
}
