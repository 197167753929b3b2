#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <span>

#include "platform/foundation/ns_data.h"

/// What libFuzzer hands to a target, in other forms.
namespace fuzz {

inline NSData dataOf(const std::uint8_t* bytes, std::size_t size) { return NSData(bytes, bytes + size); }

/// An input as a row of values; any number of bytes gives any number of them, zeros beyond the end.
class Input {
 public:
  Input(const std::uint8_t* bytes, std::size_t size) : rest_(bytes, size) {}

  template <class Number>
  Number take() {
    Number value = 0;
    const std::size_t count = std::min(sizeof(value), rest_.size());
    if (count > 0) std::memcpy(&value, rest_.data(), count);
    rest_ = rest_.subspan(count);
    return value;
  }
  /// From `least` to `most`, but not beyond `least` + 65,535: it is made of two bytes.
  int takeFrom(int least, int most) { return least + take<std::uint16_t>() % (most - least + 1); }
  std::span<const std::uint8_t> rest() const { return rest_; }

 private:
  std::span<const std::uint8_t> rest_;
};

}  // namespace fuzz
