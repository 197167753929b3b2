#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/foundation/ns_data.h"

/// Property lists as values: what a .plist file holds, in XML or binary form.

class PropertyList;
using PropertyListArray = std::vector<PropertyList>;
using PropertyListDictionary = std::map<std::string, PropertyList, std::less<>>;  // Found by any text.

/// A reference to another object of a keyed archive.
struct PropertyListUid {
  std::uint64_t index;
  bool operator==(const PropertyListUid&) const = default;
};

/// A date: seconds since 2001-01-01 00:00:00 UTC.
struct PropertyListDate {
  double seconds;
  bool operator==(const PropertyListDate&) const = default;
};

/// One value of a property list. `as<T>()` answers null unless it holds just that type; the three
/// conversions below follow the published number conversions.
class PropertyList {
 public:
  using Value = std::variant<bool, std::int64_t, double, std::string, NSData, PropertyListDate,
                             PropertyListUid, PropertyListArray, PropertyListDictionary>;

  PropertyList() : value_(PropertyListDictionary()) {}
  PropertyList(bool value) : value_(value) {}
  PropertyList(int value) : value_(std::int64_t{value}) {}
  PropertyList(std::int64_t value) : value_(value) {}
  PropertyList(double value) : value_(value) {}
  PropertyList(const char* value) : value_(std::string(value)) {}
  PropertyList(std::string value) : value_(std::move(value)) {}
  PropertyList(NSData value) : value_(std::move(value)) {}
  PropertyList(PropertyListDate value) : value_(value) {}
  PropertyList(PropertyListUid value) : value_(value) {}
  PropertyList(PropertyListArray value) : value_(std::move(value)) {}
  PropertyList(PropertyListDictionary value) : value_(std::move(value)) {}

  template <class T>
  const T* as() const {
    return std::get_if<T>(&value_);
  }
  /// What it holds, moved out; nothing unless it is just that type.
  template <class T>
  std::optional<T> take() && {
    T* value = std::get_if<T>(&value_);
    return value ? std::optional(std::move(*value)) : std::nullopt;
  }
  const Value& value() const { return value_; }

  /// Numbers and booleans convert to each other; everything else is no number and gives nothing, and so do
  /// infinity and what is not a number.
  std::optional<bool> boolValue() const;         ///< True for any number but zero.
  std::optional<float> floatValue() const;       ///< What does not fit gives nothing.
  std::optional<std::int32_t> intValue() const;  ///< Reals are truncated; what does not fit gives nothing.

  bool operator==(const PropertyList&) const = default;

 private:
  Value value_;
};

/// The value of a key, or null when the dictionary lacks it.
const PropertyList* find(const PropertyListDictionary& dictionary, std::string_view key);

enum class PropertyListFormat { Xml, Binary };

/// Reads either format by content. Anything unreadable gives nothing.
std::optional<PropertyList> propertyListWithData(const NSData& data);
/// Empty when it would become a document that is too deep or too large to be read again.
NSData dataWithPropertyList(const PropertyList& list, PropertyListFormat format);

/// `NSDictionary initWithContentsOfFile:` on a device path: nothing when the file is missing, unreadable or
/// no dictionary.
std::optional<PropertyListDictionary> dictionaryWithContentsOfFile(const std::string& devicePath);

/// `writeToFile:atomically:YES`, in XML form; false when it could not be written (the old file then stands).
bool writeDictionaryToFile(const PropertyListDictionary& dictionary, const std::string& devicePath);
