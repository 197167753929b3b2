#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

/// A walk over the objects of a binary property list that builds none of them, to learn how deep and how
/// large they would become. References to one object count each time, since the parser copies it each time.
class BinaryPropertyListWalk {
 public:
  /// `document` has to outlive the walk. `largestExpansion` is in bytes.
  BinaryPropertyListWalk(std::string_view document, std::size_t deepestNesting, std::size_t largestExpansion);

  /// False for cycles, damaged tables and whatever exceeds the limits.
  bool isBounded();

 private:
  struct Object {
    std::size_t payload = 0;     // Bytes of text or data.
    std::size_t references = 0;  // Where its references to other objects begin.
    std::size_t childCount = 0;
  };
  enum class State : std::uint8_t { Unseen, Open, Done };

  std::optional<std::uint64_t> integerAt(std::size_t offset, std::size_t width) const;
  std::optional<Object> objectAt(std::uint64_t index) const;
  std::optional<std::size_t> expansionOf(std::uint64_t index, std::size_t depth);

  std::string_view document_;
  std::size_t deepestNesting_;
  std::size_t largestExpansion_;

  std::size_t offsetWidth_ = 0;
  std::size_t referenceWidth_ = 0;
  std::size_t offsetTable_ = 0;
  std::vector<State> states_;            // By object.
  std::vector<std::size_t> expansions_;  // By object, once it is done.
};
