// Property lists: whatever can be read can be written in both forms, and comes back as it was.

#include "platform/foundation/property_list.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "fuzz/input.h"
#include "fuzz/promise.h"

namespace {

/// Equal, but for what a form has no place for: XML has none for parts of a second. Two NaN are the same.
class Sameness {
 public:
  explicit Sameness(PropertyListFormat format) : format_(format) {}

  bool operator()(const PropertyList& one, const PropertyList& other) const {
    return one.value().index() == other.value().index() &&
           std::visit([&]<class T>(const T& value) { return same(value, *other.as<T>()); }, one.value());
  }

 private:
  template <class T>
  bool same(const T& one, const T& other) const {
    return one == other;
  }
  bool same(double one, double other) const { return one == other || (std::isnan(one) && std::isnan(other)); }
  bool same(PropertyListDate one, PropertyListDate other) const {
    const bool keepsFractions = format_ == PropertyListFormat::Binary;
    return std::abs(one.seconds - other.seconds) < (keepsFractions ? 1e-5 : 1);
  }
  bool same(const PropertyListArray& one, const PropertyListArray& other) const {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), *this);
  }
  bool same(const PropertyListDictionary& one, const PropertyListDictionary& other) const {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), [this](auto& left, auto& right) {
      return left.first == right.first && (*this)(left.second, right.second);
    });
  }

  PropertyListFormat format_;
};

/// A binary document says once what stands in many places, each of which is written; that may be too much to
/// be read again. Its head may follow a byte order mark.
bool mayExpand(const NSData& document) {
  constexpr std::string_view binaryHead = "bplist00";
  return std::search(document.begin(), document.end(), binaryHead.begin(), binaryHead.end()) !=
         document.end();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const NSData document = fuzz::dataOf(bytes, size);
  const auto list = propertyListWithData(document);
  if (!list) return 0;
  for (auto format : {PropertyListFormat::Xml, PropertyListFormat::Binary}) {
    const NSData written = dataWithPropertyList(*list, format);
    if (written.empty() && mayExpand(document)) continue;
    const auto again = propertyListWithData(written);
    fuzz::require(again && Sameness(format)(*list, *again), "a list that was read survives both forms");
  }
  return 0;
}
