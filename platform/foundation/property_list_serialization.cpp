// The two file formats of property lists, by way of libplist.

#include <glib.h>
#include <plist/plist.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "platform/foundation/property_list.h"
#include "platform/foundation/property_list_guard.h"

namespace {

constexpr std::string_view uidKey = "CF$UID";  // How XML spells a reference: a dictionary of this one key.
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr double microsecondsPerSecond = 1e6;

struct NodeDeleter {
  void operator()(plist_t node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, NodeDeleter>;

struct FreeDeleter {
  void operator()(void* memory) const { std::free(memory); }
};
template <class T>
using Allocated = std::unique_ptr<T, FreeDeleter>;

/// Nothing when there is a text in it that is none.
std::optional<PropertyList> valueOf(plist_t node, PropertyListFormat format);

template <class T>
T scalarOf(plist_t node, void (*getter)(plist_t, T*)) {
  T value{};
  getter(node, &value);
  return value;
}

/// Negative numbers are kept as their two's complement. One beyond 63 bits, of which the library tells by its
/// width alone, becomes a real.
PropertyList integerOf(plist_t node) {
  const auto value = scalarOf(node, plist_get_uint_val);
  const Node narrow(plist_new_uint(value));
  if (!plist_compare_node_value(node, narrow.get())) return static_cast<double>(value);
  return static_cast<std::int64_t>(value);
}

std::string_view bytesOf(plist_t node, const char* (*getter)(plist_t, std::uint64_t*)) {
  std::uint64_t length = 0;
  const char* bytes = getter(node, &length);
  return bytes ? std::string_view(bytes, length) : std::string_view();
}

/// The nearest date that the library can hold: it counts seconds with 32 bits.
double representableDate(double seconds) {
  using Limits = std::numeric_limits<std::int32_t>;
  return std::isnan(seconds) ? 0 : std::clamp<double>(seconds, Limits::min(), Limits::max());
}

PropertyListDate dateOf(plist_t node) {
  std::int32_t seconds = 0;
  std::int32_t microseconds = 0;
  plist_get_date_val(node, &seconds, &microseconds);
  const double fraction = microseconds / microsecondsPerSecond;
  // The fraction comes without its sign; a date far out of range brings anything at all.
  return {representableDate(seconds + std::copysign(fraction, seconds))};
}

/// The library passes bytes on as they are; a text is UTF-8.
bool isText(std::string_view bytes) { return g_utf8_validate_len(bytes.data(), bytes.size(), nullptr); }

std::optional<PropertyList> textOf(plist_t node) {
  const std::string_view bytes = bytesOf(node, plist_get_string_ptr);
  return isText(bytes) ? std::optional<PropertyList>(std::string(bytes)) : std::nullopt;
}

std::optional<PropertyListArray> arrayOf(plist_t node, PropertyListFormat format) {
  PropertyListArray values;
  plist_array_iter iterator = nullptr;
  plist_array_new_iter(node, &iterator);
  const Allocated<void> owner(iterator);
  for (;;) {
    plist_t item = nullptr;
    plist_array_next_item(node, iterator, &item);
    if (!item) return values;
    auto value = valueOf(item, format);
    if (!value) return std::nullopt;
    values.push_back(std::move(*value));
  }
}

std::optional<PropertyListDictionary> dictionaryOf(plist_t node, PropertyListFormat format) {
  PropertyListDictionary values;
  plist_dict_iter iterator = nullptr;
  plist_dict_new_iter(node, &iterator);
  const Allocated<void> owner(iterator);
  for (;;) {
    char* key = nullptr;
    plist_t item = nullptr;
    plist_dict_next_item(node, iterator, &key, &item);
    const Allocated<char> keyOwner(key);
    if (!key || !item) return values;
    auto value = valueOf(item, format);
    if (!value || !isText(key)) return std::nullopt;
    values.insert_or_assign(values.end(), key, std::move(*value));  // Keys mostly come in order.
  }
}

/// The reference that an XML dictionary spells, or nothing when it is an ordinary one.
std::optional<PropertyListUid> spelledUid(const PropertyListDictionary& dictionary) {
  const PropertyList* value = dictionary.size() == 1 ? find(dictionary, uidKey) : nullptr;
  auto* index = value ? value->as<std::int64_t>() : nullptr;
  if (!index || *index < 0) return std::nullopt;
  return PropertyListUid{static_cast<std::uint64_t>(*index)};
}

/// Recursion is as deep as the list, which the guard has bounded.
std::optional<PropertyList> valueOf(plist_t node, PropertyListFormat format) {
  switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN:
      return scalarOf(node, plist_get_bool_val) != 0;
    case PLIST_UINT:
      return integerOf(node);
    case PLIST_REAL:
      return scalarOf(node, plist_get_real_val);
    case PLIST_DATE:
      return dateOf(node);
    case PLIST_UID:
      return PropertyListUid{scalarOf(node, plist_get_uid_val)};
    case PLIST_DATA: {
      const std::string_view bytes = bytesOf(node, plist_get_data_ptr);
      const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.data());
      return NSData(first, first + bytes.size());
    }
    case PLIST_ARRAY:
      return arrayOf(node, format);
    case PLIST_DICT: {
      auto dictionary = dictionaryOf(node, format);
      const bool mayBeUid = dictionary && format == PropertyListFormat::Xml;
      if (const auto uid = mayBeUid ? spelledUid(*dictionary) : std::nullopt) return *uid;
      return dictionary;
    }
    default:
      return textOf(node);
  }
}

/// Whether no more than `levels` arrays and dictionaries lie inside one another: the library recurses.
bool isShallow(const PropertyList& list, std::size_t levels) {
  const auto isShallowBelow = [levels](const PropertyList& item) { return isShallow(item, levels - 1); };
  if (auto* array = list.as<PropertyListArray>())
    return levels > 0 && std::ranges::all_of(*array, isShallowBelow);
  if (auto* dictionary = list.as<PropertyListDictionary>())
    return levels > 0 &&
           std::ranges::all_of(*dictionary, isShallowBelow, &PropertyListDictionary::value_type::second);
  return true;
}

/// Makes the libplist node of each kind of value; the caller owns it.
struct NodeMaker {
  plist_t operator()(bool value) const { return plist_new_bool(value); }
  plist_t operator()(std::int64_t value) const { return plist_new_uint(static_cast<std::uint64_t>(value)); }
  plist_t operator()(double value) const { return plist_new_real(value); }
  plist_t operator()(const std::string& value) const { return plist_new_string(value.c_str()); }
  plist_t operator()(PropertyListUid value) const { return plist_new_uid(value.index); }

  plist_t operator()(const NSData& value) const {
    return plist_new_data(reinterpret_cast<const char*>(value.data()), value.size());
  }

  plist_t operator()(PropertyListDate value) const {
    const double date = representableDate(value.seconds);
    const double seconds = std::trunc(date);
    const double microseconds = std::trunc((date - seconds) * microsecondsPerSecond);
    return plist_new_date(static_cast<std::int32_t>(seconds), static_cast<std::int32_t>(microseconds));
  }

  plist_t operator()(const PropertyListArray& values) const {
    plist_t array = plist_new_array();
    for (const PropertyList& value : values) plist_array_append_item(array, std::visit(*this, value.value()));
    return array;
  }

  plist_t operator()(const PropertyListDictionary& values) const {
    plist_t dictionary = plist_new_dict();
    for (const auto& [key, value] : values) {
      plist_dict_set_item(dictionary, key.c_str(), std::visit(*this, value.value()));
    }
    return dictionary;
  }
};

}  // namespace

std::optional<PropertyList> propertyListWithData(const NSData& data) {
  std::string_view document(reinterpret_cast<const char*>(data.data()), data.size());
  if (document.starts_with(byteOrderMark)) document.remove_prefix(byteOrderMark.size());
  const auto format = parseablePropertyListFormat(document);
  if (!format) return std::nullopt;
  const auto parse = *format == PropertyListFormat::Binary ? plist_from_bin : plist_from_xml;
  plist_t parsed = nullptr;
  parse(document.data(), static_cast<std::uint32_t>(document.size()), &parsed);
  const Node root(parsed);
  return root ? valueOf(root.get(), *format) : std::nullopt;
}

NSData dataWithPropertyList(const PropertyList& list, PropertyListFormat format) {
  if (!isShallow(list, deepestPropertyList)) return {};
  const Node root(std::visit(NodeMaker(), list.value()));
  const auto serialize = format == PropertyListFormat::Binary ? plist_to_bin : plist_to_xml;
  char* bytes = nullptr;
  std::uint32_t length = 0;
  serialize(root.get(), &bytes, &length);
  const Allocated<char> owner(bytes);
  const bool isReadable = bytes && parseablePropertyListFormat({bytes, length});
  return isReadable ? NSData(bytes, bytes + length) : NSData();
}
