#include "platform/coregraphics/exif_orientation.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

constexpr std::array<std::uint8_t, 6> exifHeader{'E', 'x', 'i', 'f', 0, 0};
constexpr std::uint16_t tiffMagic = 42;
constexpr std::size_t magicOffset = 2;
constexpr std::size_t firstDirectoryOffset = 4;
constexpr std::size_t tiffHeaderSize = 8;
constexpr std::size_t entrySize = 12;
constexpr std::uint16_t orientationTag = 0x0112;
constexpr std::uint16_t typeShort = 3;
constexpr int lastOrientation = 8;

/// The TIFF structure inside, read in its own byte order. What lies outside of it is nothing.
class Tiff {
 public:
  explicit Tiff(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  /// True when the header names a byte order and bears the magic number in it.
  bool readHeader() {
    if (bytes_.size() < magicOffset || bytes_[0] != bytes_[1]) return false;
    bigEndian_ = bytes_[0] == 'M';
    return (bigEndian_ || bytes_[0] == 'I') && number16(magicOffset) == tiffMagic;
  }

  std::optional<std::uint16_t> number16(std::size_t offset) const {
    if (offset > bytes_.size() || bytes_.size() - offset < 2) return std::nullopt;
    const int first = bytes_[offset];
    const int second = bytes_[offset + 1];
    return std::uint16_t(bigEndian_ ? first << 8 | second : second << 8 | first);
  }

  std::optional<std::uint32_t> number32(std::size_t offset) const {
    const auto first = number16(offset);
    const auto second = number16(offset + 2);
    if (!first || !second) return std::nullopt;
    return bigEndian_ ? std::uint32_t{*first} << 16 | *second : std::uint32_t{*second} << 16 | *first;
  }

 private:
  std::span<const std::uint8_t> bytes_;
  bool bigEndian_ = false;
};

/// The value of a directory entry that is one short number; nothing for entries of other types.
std::optional<std::uint16_t> shortValue(const Tiff& tiff, std::size_t entry) {
  const bool isOneShort = tiff.number16(entry + 2) == typeShort && tiff.number32(entry + 4) == 1u;
  return isOneShort ? tiff.number16(entry + 8) : std::nullopt;
}

}  // namespace

int exifOrientation(std::span<const std::uint8_t> app1) {
  if (app1.size() < exifHeader.size() || !std::equal(exifHeader.begin(), exifHeader.end(), app1.begin())) {
    return exifOrientationUp;
  }
  Tiff tiff(app1.subspan(exifHeader.size()));
  if (!tiff.readHeader()) return exifOrientationUp;
  const std::size_t directory = tiff.number32(firstDirectoryOffset).value_or(0);
  if (directory < tiffHeaderSize) return exifOrientationUp;
  const int entries = tiff.number16(directory).value_or(0);
  for (int i = 0; i < entries; ++i) {
    const std::size_t entry = directory + 2 + std::size_t(i) * entrySize;
    if (tiff.number16(entry) != orientationTag) continue;
    const int value = shortValue(tiff, entry).value_or(exifOrientationUp);
    const bool known = value >= exifOrientationUp && value <= lastOrientation;
    return known ? value : exifOrientationUp;
  }
  return exifOrientationUp;
}
