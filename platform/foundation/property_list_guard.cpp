#include "platform/foundation/property_list_guard.h"

#include <algorithm>
#include <cctype>

#include "platform/foundation/binary_property_list_walk.h"

namespace {

constexpr std::string_view binaryHead = "bplist00";
constexpr std::size_t largestDocument = 1 << 20;     // Bytes.
constexpr std::size_t largestExpansion = 16 << 20;   // Bytes of objects, each reference counted anew.
constexpr std::size_t largestUnescaping = 64 << 20;  // Bytes of one text, times its entities.

/// Follows the tags of an XML document, keeping only which arrays and dictionaries are open.
class XmlNesting {
 public:
  explicit XmlNesting(std::string_view text)
      : rest_(text), hasEntities_(text.find('&') != std::string_view::npos) {}

  bool isBounded() {
    if (rest_.find('\0') != std::string_view::npos) return false;  // No XML character, and no end of a text.
    while (isQuickText() && skipPast("<")) {
      if (!takeTag() || open_.size() > deepestPropertyList) return false;
    }
    return isQuickText();
  }

 private:
  /// For each entity of a text the parser moves all that follows it.
  bool isQuickText() const {
    if (!hasEntities_) return true;
    const std::string_view text = rest_.substr(0, rest_.find('<'));
    return std::size_t(std::ranges::count(text, '&')) * text.size() <= largestUnescaping;
  }

  bool skipPast(std::string_view end) {
    const std::size_t position = rest_.find(end);
    if (position == std::string_view::npos) return false;
    rest_.remove_prefix(position + end.size());
    return true;
  }

  bool take(std::string_view start) {
    if (!rest_.starts_with(start)) return false;
    rest_.remove_prefix(start.size());
    return true;
  }

  bool takeTag() {
    if (rest_.starts_with('!') || rest_.starts_with('?')) return takeMarkup();
    const bool closes = take("/");
    const bool isContainer = rest_.starts_with(array) || rest_.starts_with(dictionary);
    return isContainer ? takeContainer(closes) : open_.empty() || isPlainTag();
  }

  bool takeMarkup() {
    if (take("!--")) return skipPast("-->");
    if (take("![CDATA[")) return skipPast("]]>");
    if (take("?")) return open_.empty() && skipPast("?>");
    return take("!") && takeDeclaration();
  }

  /// What looks like a tag here might be a part of this one to the parser.
  bool isPlainTag() const {
    for (const char c : rest_) {
      if (c == '>') return true;
      if (c == '<' || c == '"' || c == '\'') return false;
    }
    return false;
  }

  /// A document type stands before everything else and defines nothing of its own.
  bool takeDeclaration() {
    const std::string_view declaration = rest_.substr(0, rest_.find('>'));
    return open_.empty() && declaration.find('[') == std::string_view::npos;
  }

  /// Only the plain spelling of a container's tag passes, so that the parser cannot read it another way.
  bool takeContainer(bool closes) {
    const std::string_view name = rest_.starts_with(array) ? array : dictionary;
    take(name);
    while (!rest_.empty() && std::isspace(static_cast<unsigned char>(rest_.front()))) rest_.remove_prefix(1);
    if (!closes && take("/>")) return true;
    if (!take(">")) return false;
    if (!closes) {
      open_.push_back(name);
      return true;
    }
    if (open_.empty() || open_.back() != name) return false;
    open_.pop_back();
    return true;
  }

  static constexpr std::string_view array = "array";
  static constexpr std::string_view dictionary = "dict";

  std::string_view rest_;
  bool hasEntities_;
  std::vector<std::string_view> open_;
};

bool looksLikeXml(std::string_view document) {
  auto first =
      std::find_if_not(document.begin(), document.end(), [](unsigned char c) { return std::isspace(c); });
  return first != document.end() && *first == '<';
}

}  // namespace

std::optional<PropertyListFormat> parseablePropertyListFormat(std::string_view document) {
  if (document.size() > largestDocument) return std::nullopt;
  if (document.starts_with(binaryHead)) {
    const bool isBounded =
        BinaryPropertyListWalk(document, deepestPropertyList, largestExpansion).isBounded();
    return isBounded ? std::optional(PropertyListFormat::Binary) : std::nullopt;
  }
  const bool isBounded = looksLikeXml(document) && XmlNesting(document).isBounded();
  return isBounded ? std::optional(PropertyListFormat::Xml) : std::nullopt;
}
