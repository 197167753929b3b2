#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>

#include "platform/foundation/ns_data.h"

/// An open file descriptor, closed at the end of its scope. Internal.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}  ///< Owned from now on; a negative one is none.
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor();

  bool isOpen() const { return number_ >= 0; }
  int number() const { return number_; }

  bool sync() const;
  /// Locks the file without waiting; false, with errno EWOULDBLOCK, while another process holds it.
  bool lock() const;
  /// Whether `path` leads to this very file.
  bool isAt(const std::filesystem::path& path) const;

  /// Reads the bytes of a regular file, as many as it has now; false for anything else or for more than
  /// `largest` bytes. What `data` held is gone in any case.
  bool read(NSData& data, off_t largest) const;
  bool write(const NSData& data) const;  ///< False unless all of it is written.
  /// Makes `data` all that a regular file holds; false for anything else, or when some of it cannot be
  /// written. It is not emptied first: file systems take that for a replacement, which they bring to the disk
  /// at once.
  bool replaceContents(const NSData& data) const;

 private:
  int number_;
};
