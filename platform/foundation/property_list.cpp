#include "platform/foundation/property_list.h"

#include <cmath>
#include <limits>

#include "platform/foundation/file_manager.h"

namespace {

/// The number that a value is, as a Number; nothing when it is neither number nor boolean.
template <class Number>
std::optional<Number> numberIn(const PropertyList& value) {
  if (auto* boolean = value.as<bool>()) return static_cast<Number>(*boolean);
  if (auto* integer = value.as<std::int64_t>()) return static_cast<Number>(*integer);
  if (auto* real = value.as<double>()) return static_cast<Number>(*real);
  return std::nullopt;
}

}  // namespace

std::optional<bool> PropertyList::boolValue() const { return numberIn<bool>(*this); }

std::optional<float> PropertyList::floatValue() const { return numberIn<float>(*this); }

std::optional<std::int32_t> PropertyList::intValue() const {
  using Limits = std::numeric_limits<std::int32_t>;
  // A double holds every 32-bit integer exactly, and no 64-bit one outside that range rounds into it.
  const std::optional<double> number = numberIn<double>(*this);
  if (!number) return std::nullopt;
  const double whole = std::trunc(*number);
  const bool fits = whole >= Limits::min() && whole <= Limits::max();  // False for what is no number at all.
  return fits ? std::optional(static_cast<std::int32_t>(whole)) : std::nullopt;
}

const PropertyList* find(const PropertyListDictionary& dictionary, std::string_view key) {
  auto entry = dictionary.find(std::string(key));
  return entry == dictionary.end() ? nullptr : &entry->second;
}

std::optional<PropertyListDictionary> dictionaryWithContentsOfFile(const std::string& devicePath) {
  const auto data = NSFileManager::defaultManager().contents(devicePath);
  auto list = data ? propertyListWithData(*data) : std::nullopt;
  auto* dictionary = list ? list->as<PropertyListDictionary>() : nullptr;
  return dictionary ? std::optional(*dictionary) : std::nullopt;
}

bool writeDictionaryToFile(const PropertyListDictionary& dictionary, const std::string& devicePath) {
  const NSData data = dataWithPropertyList(dictionary, PropertyListFormat::Xml);
  return !data.empty() &&
         NSFileManager::defaultManager().write(devicePath, data, NSFileManager::Writing::Atomic);
}
