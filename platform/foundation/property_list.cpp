#include "platform/foundation/property_list.h"

#include <cmath>
#include <limits>

#include "platform/foundation/file_manager.h"

namespace {

/// The finite number that a value is; nothing when it is neither number nor boolean.
std::optional<double> numberIn(const PropertyList& value) {
  if (auto* boolean = value.as<bool>()) return *boolean;
  if (auto* integer = value.as<std::int64_t>()) return static_cast<double>(*integer);
  auto* real = value.as<double>();
  return real && std::isfinite(*real) ? std::optional(*real) : std::nullopt;
}

}  // namespace

std::optional<bool> PropertyList::boolValue() const {
  const auto number = numberIn(*this);
  return number ? std::optional(*number != 0) : std::nullopt;
}

std::optional<float> PropertyList::floatValue() const {
  const auto number = numberIn(*this);
  const bool fits = number && std::abs(*number) <= std::numeric_limits<float>::max();
  return fits ? std::optional(static_cast<float>(*number)) : std::nullopt;
}

std::optional<std::int32_t> PropertyList::intValue() const {
  using Limits = std::numeric_limits<std::int32_t>;
  // A double holds every 32-bit integer exactly, and no 64-bit one outside that range rounds into it.
  const std::optional<double> number = numberIn(*this);
  if (!number) return std::nullopt;
  const double whole = std::trunc(*number);
  const bool fits = whole >= Limits::min() && whole <= Limits::max();
  return fits ? std::optional(static_cast<std::int32_t>(whole)) : std::nullopt;
}

const PropertyList* find(const PropertyListDictionary& dictionary, std::string_view key) {
  auto entry = dictionary.find(key);
  return entry == dictionary.end() ? nullptr : &entry->second;
}

std::optional<PropertyListDictionary> dictionaryWithContentsOfFile(const std::string& devicePath) {
  // Kept for the next one: an allocation as large as a usual file makes the allocator sweep up after the
  // parser.
  constexpr std::size_t usual = 64 << 10;  // Bytes.
  static NSData data;
  auto list =
      NSFileManager::defaultManager().read(devicePath, data) ? propertyListWithData(data) : std::nullopt;
  if (data.capacity() > usual) data = NSData();
  return list ? std::move(*list).take<PropertyListDictionary>() : std::nullopt;
}

bool writeDictionaryToFile(const PropertyListDictionary& dictionary, const std::string& devicePath) {
  const NSData data = dataWithPropertyList(dictionary, PropertyListFormat::Xml);
  return !data.empty() &&
         NSFileManager::defaultManager().write(devicePath, data, NSFileManager::Writing::Atomic);
}
