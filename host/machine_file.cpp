#include "host/machine_file.h"

#include <cerrno>
#include <system_error>

#include "host/failure.h"

namespace host {
namespace {

Failure failureWithErrno(const std::filesystem::path& path) {
  // A stream says that it failed, the system why; where it does not, a general word has to do.
  const int cause = errno ? errno : EIO;
  return Failure(path.string() + ": " + std::generic_category().message(cause));
}

}  // namespace

MachineFile::MachineFile(std::filesystem::path path, Existing existing) : path_(std::move(path)) {
  errno = 0;
  stream_.open(path_, std::ios::binary | (existing == Existing::Emptied ? std::ios::trunc : std::ios::app));
  check();
}

void MachineFile::write(const NSData& data) {
  errno = 0;
  stream_.write(reinterpret_cast<const char*>(data.data()), std::streamsize(data.size())).flush();
  check();
}

void MachineFile::write(const std::string& text) {
  errno = 0;
  stream_.write(text.data(), std::streamsize(text.size())).flush();
  check();
}

void MachineFile::check() {
  if (!stream_) throw failureWithErrno(path_);
}

std::ifstream openMachineFile(const std::filesystem::path& path) {
  errno = 0;
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw failureWithErrno(path);
  // A folder can be opened; only reading it fails.
  if (std::error_code ignored; std::filesystem::is_directory(path, ignored)) {
    errno = EISDIR;
    throw failureWithErrno(path);
  }
  return stream;
}

}  // namespace host
