#include "platform/foundation/binary_property_list_walk.h"

namespace {

// The last 32 bytes: five unused, a sort version, two widths, and three 8-byte numbers, big-endian.
constexpr std::size_t trailerSize = 32;
constexpr std::size_t offsetWidthAt = 6;
constexpr std::size_t referenceWidthAt = 7;
constexpr std::size_t objectCountAt = 8;
constexpr std::size_t topObjectAt = 16;
constexpr std::size_t offsetTableAt = 24;
constexpr std::size_t longWidth = 8;

// An object begins with a byte of kind and count; a count of 15 stands for an integer object that follows.
enum Kind : unsigned {
  Integer = 0x1,
  Data = 0x4,
  AsciiText = 0x5,
  WideText = 0x6,
  Array = 0xA,
  Set = 0xC,
  Dictionary = 0xD
};
constexpr unsigned kindShift = 4;
constexpr unsigned countMask = 0xF;
constexpr unsigned widestIntegerExponent = 3;
constexpr std::size_t wideCharacter = 2;
constexpr std::size_t nodeSize = 64;  // Roughly what the parser takes for an object apart from its payload.

/// The parser cannot represent such a text, and aborts where it is a key.
bool holdsNul(std::string_view text, std::size_t characterSize) {
  for (; text.size() >= characterSize; text.remove_prefix(characterSize)) {
    if (text.substr(0, characterSize).find_first_not_of('\0') == std::string_view::npos) return true;
  }
  return false;
}

}  // namespace

BinaryPropertyListWalk::BinaryPropertyListWalk(std::string_view document, std::size_t deepestNesting,
                                               std::size_t largestExpansion)
    : document_(document), deepestNesting_(deepestNesting), largestExpansion_(largestExpansion) {}

bool BinaryPropertyListWalk::isBounded() {
  if (document_.size() < trailerSize) return false;
  const std::size_t trailer = document_.size() - trailerSize;
  offsetWidth_ = *integerAt(trailer + offsetWidthAt, 1);
  referenceWidth_ = *integerAt(trailer + referenceWidthAt, 1);
  offsetTable_ = *integerAt(trailer + offsetTableAt, longWidth);
  const std::uint64_t objectCount = *integerAt(trailer + objectCountAt, longWidth);
  if (objectCount > document_.size()) return false;  // Each object takes a byte at the least.
  states_.assign(objectCount, State::Unseen);
  expansions_.assign(objectCount, 0);
  return expansionOf(*integerAt(trailer + topObjectAt, longWidth), 0).has_value();
}

std::optional<std::uint64_t> BinaryPropertyListWalk::integerAt(std::size_t offset, std::size_t width) const {
  const bool fits = offset <= document_.size() && width <= document_.size() - offset;
  if (!fits || width == 0 || width > longWidth) return std::nullopt;
  std::uint64_t value = 0;
  for (unsigned char byte : document_.substr(offset, width)) value = value << 8 | byte;
  return value;
}

std::optional<BinaryPropertyListWalk::Object> BinaryPropertyListWalk::objectAt(std::uint64_t index) const {
  if (offsetTable_ > document_.size()) return std::nullopt;
  const auto offset = integerAt(offsetTable_ + index * offsetWidth_, offsetWidth_);
  const auto head = offset ? integerAt(*offset, 1) : std::nullopt;
  if (!head) return std::nullopt;

  std::size_t contents = *offset + 1;
  std::uint64_t count = *head & countMask;
  const unsigned kind = static_cast<unsigned>(*head >> kindShift);
  const bool isContainer = kind == Array || kind == Set || kind == Dictionary;
  const bool isCounted = isContainer || kind == Data || kind == AsciiText || kind == WideText;
  if (!isCounted) return Object();
  if (count == countMask) {
    const auto width = integerAt(contents, 1);
    if (!width || *width >> kindShift != Integer || (*width & countMask) > widestIntegerExponent)
      return std::nullopt;
    const std::size_t bytes = std::size_t{1} << (*width & countMask);
    const auto longCount = integerAt(contents + 1, bytes);
    if (!longCount) return std::nullopt;
    count = *longCount;
    contents += 1 + bytes;
  }
  if (count > document_.size()) return std::nullopt;

  if (!isContainer) {
    const std::size_t characterSize = kind == WideText ? wideCharacter : 1;
    const std::size_t payload = count * characterSize;
    if (kind != Data && holdsNul(document_.substr(contents, payload), characterSize)) return std::nullopt;
    return Object{.payload = payload};
  }
  return Object{.references = contents, .childCount = kind == Dictionary ? 2 * count : count};
}

std::optional<std::size_t> BinaryPropertyListWalk::expansionOf(std::uint64_t index, std::size_t depth) {
  if (index >= states_.size() || depth > deepestNesting_ || states_[index] == State::Open)
    return std::nullopt;
  if (states_[index] == State::Done) return expansions_[index];
  const auto object = objectAt(index);
  if (!object) return std::nullopt;

  states_[index] = State::Open;
  std::size_t expansion = nodeSize + object->payload;
  for (std::size_t child = 0; child < object->childCount; ++child) {
    const auto reference = integerAt(object->references + child * referenceWidth_, referenceWidth_);
    const auto childExpansion = reference ? expansionOf(*reference, depth + 1) : std::nullopt;
    if (!childExpansion) return std::nullopt;
    expansion += *childExpansion;
    if (expansion > largestExpansion_) return std::nullopt;
  }
  states_[index] = State::Done;
  expansions_[index] = expansion;
  return expansion;
}
