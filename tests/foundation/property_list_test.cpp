#include "platform/foundation/property_list.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tests/support/temporary_root.h"

namespace {

using Dictionary = PropertyListDictionary;
using Array = PropertyListArray;

constexpr int arrayMarker = 0xA0;  // Plus the number of references.
constexpr int trueMarker = 0x09, realMarker = 0x23, dateMarker = 0x33;
constexpr int referenceWidth = 4;  // Bytes of an offset or a reference.

class PropertyLists : public TemporaryRoot {
 protected:
  static NSData xml(const std::string& body) { return bytes("<!-- </dict> --><plist>" + body + "</plist>"); }

  static std::string repeated(std::string_view text, int times) {
    std::string all;
    while (times-- > 0) all += text;
    return all;
  }

  enum class End { Leaf, Cycle };
  /// A binary list whose every object is an array of `width` references to the next one; the last is a leaf
  /// or refers to the first.
  static NSData chain(std::size_t length, int width, End end) {
    NSData data = bytes("bplist00");
    const auto put = [&data](std::size_t value, int count) {
      while (count-- > 0) data.push_back(static_cast<std::uint8_t>(value >> (8 * count)));
    };
    std::vector<std::size_t> offsets;
    for (std::size_t next = 1; next <= length; ++next) {
      offsets.push_back(data.size());
      const bool isLeaf = next == length && end == End::Leaf;
      put(isLeaf ? trueMarker : arrayMarker + width, 1);
      for (int i = 0; !isLeaf && i < width; ++i) put(next % length, referenceWidth);
    }
    const std::size_t table = data.size();
    for (std::size_t offset : offsets) put(offset, referenceWidth);
    put(0, 6);
    for (int i = 0; i < 2; ++i) put(referenceWidth, 1);
    for (std::size_t number : {length, std::size_t{0}, table}) put(number, 8);
    return data;
  }
};

TEST_F(PropertyLists, EveryKindOfValueSurvivesBothForms) {
  // clang-format off
  const PropertyList all = Array{
      "", "\u00e9 <&> ]]> <array>", true, false, 1, -5, std::numeric_limits<std::int64_t>::min(), double{0.7f},
      1.0, NSData{0, 255, 10}, NSData(), PropertyListDate{-100}, PropertyListUid{3}, Array(), Dictionary(),
      Dictionary{{"", 1}, {"a<b", Array{"two"}}}};
  // clang-format on
  for (auto format : {PropertyListFormat::Xml, PropertyListFormat::Binary}) {
    const NSData data = dataWithPropertyList(all, format);
    EXPECT_EQ(data[0], format == PropertyListFormat::Xml ? '<' : 'b');
    EXPECT_EQ(propertyListWithData(data), all);
  }
  NSData farDate = dataWithPropertyList(1e300, PropertyListFormat::Binary);
  *std::ranges::find(farDate, realMarker) = dateMarker;
  EXPECT_LE(std::abs(propertyListWithData(farDate)->as<PropertyListDate>()->seconds), 0x1p31);
}

TEST_F(PropertyLists, WhatIsNoPropertyListGivesNothing) {
  const NSData good[] = {xml("<true/>"), bytes("\xEF\xBB\xBF <true/>"), chain(500, 1, End::Leaf),
                         xml(repeated("<array>", 500) + repeated("</array>", 500))};
  for (const NSData& data : good) EXPECT_TRUE(propertyListWithData(data)) << &data - good;

  NSData cut = chain(2, 1, End::Leaf);
  cut.pop_back();
  NSData nulInKey = dataWithPropertyList(Dictionary{{"key", 1}}, PropertyListFormat::Binary);
  NSData noTextInKey = nulInKey;
  *std::ranges::find(nulInKey, 'k') = '\0';
  *std::ranges::find(noTextInKey, 'k') = 0xFF;
  // clang-format off
  const NSData broken[] = {
      {}, NSData(100, 0), bytes("{ key = value; }"), cut, nulInKey, noTextInKey, xml("<string>\xFF</string>"),
      xml("<string>&#xD800;</string>"), xml(""), xml("<array><true/>"), xml("<array></dict>"),
      xml("<!DOCTYPE x [<!ENTITY a \"b\">]><true/>"), xml("<string>" + std::string(17 << 20, 'x') + "</string>")};
  // clang-format on
  for (const NSData& data : broken) EXPECT_FALSE(propertyListWithData(data)) << &data - broken;
}

TEST_F(PropertyLists, CyclesDepthAndSharedObjectsDoNotExhaustTheMachine) {
  const NSData hostile[] = {chain(1, 1, End::Cycle), chain(3, 1, End::Cycle), chain(200000, 1, End::Leaf),
                            chain(30, 10, End::Leaf)};
  for (const NSData& data : hostile) EXPECT_FALSE(propertyListWithData(data)) << &data - hostile;
  for (const char* opening : {"<array>", "<array >", "<array><!-- </array> -->", "<dict><key>a</key>"}) {
    EXPECT_FALSE(propertyListWithData(xml(repeated(opening, 60000)))) << opening;
  }
  // To the parser these end later than they seem to, and the arrays stay open.
  for (const char* ending : {"<?\"?></array>\"?>", "<true a=\"></array>\"/>", "<true </array>/>"}) {
    EXPECT_FALSE(propertyListWithData(xml(repeated(std::string("<array>") + ending, 20000)))) << ending;
  }
  EXPECT_FALSE(propertyListWithData(xml("<string>" + repeated("&amp;", 200000) + "</string>")));
}

TEST_F(PropertyLists, WhatCouldNotBeReadAgainIsNotWritten) {
  PropertyList deep = true;
  for (int i = 0; i < 600; ++i)
    deep = i % 2 ? PropertyList(Array{deep}) : PropertyList(Dictionary{{"a", deep}});
  for (const PropertyList& list : {deep, PropertyList(std::string(2 << 20, 'x'))}) {
    for (auto format : {PropertyListFormat::Xml, PropertyListFormat::Binary})
      EXPECT_TRUE(dataWithPropertyList(list, format).empty());
    EXPECT_FALSE(writeDictionaryToFile({{"key", list}}, "/file.plist"));
  }
  EXPECT_FALSE(files().fileExists("/file.plist"));
}

TEST_F(PropertyLists, NumbersAndBooleansConvertAndNothingElseDoes) {
  constexpr double endless = std::numeric_limits<double>::infinity();
  const struct {
    PropertyList value;
    std::optional<bool> asBool;
    std::optional<float> asFloat;
    std::optional<std::int32_t> asInt;
    // clang-format off
  } cases[] = {
      {true, true, 1, 1}, {false, false, 0, 0}, {15, true, 15, 15}, {0, false, 0, 0}, {0.7, true, 0.7f, 0},
      {-2.9, true, -2.9f, -2}, {2147483647.9, true, 2147483648.0f, 2147483647},
      {2147483648.0, true, 2147483648.0f, {}}, {std::int64_t{1} << 40, true, std::ldexp(1.0f, 40), {}},
      {1e300, true, {}, {}},
      {endless, {}, {}, {}}, {std::nan(""), {}, {}, {}}, {"1", {}, {}, {}}, {NSData{1}, {}, {}, {}}, {Array{1}, {}, {}, {}}};
  // clang-format on
  for (const auto& each : cases) {
    SCOPED_TRACE(&each - cases);
    EXPECT_EQ(each.value.boolValue(), each.asBool);
    EXPECT_EQ(each.value.floatValue(), each.asFloat);
    EXPECT_EQ(each.value.intValue(), each.asInt);
  }
  EXPECT_EQ(propertyListWithData(xml("<integer>99999999999999999999</integer>"))->intValue(), std::nullopt);
}

TEST_F(PropertyLists, OnlyDictionariesAreReadFromAFile) {
  const Dictionary settings = {{"enabled", true}};
  ASSERT_TRUE(writeDictionaryToFile(settings, "/var/settings.plist"));
  EXPECT_EQ(files().contents("/var/settings.plist")->front(), '<');
  EXPECT_EQ(dictionaryWithContentsOfFile("/var/settings.plist"), settings);
  ASSERT_TRUE(files().write("/array.plist", xml("<array/>"), NSFileManager::Writing::Plain));
  EXPECT_FALSE(dictionaryWithContentsOfFile("/array.plist"));
  EXPECT_FALSE(dictionaryWithContentsOfFile("/missing.plist"));
  EXPECT_FALSE(writeDictionaryToFile(settings, "/var"));
}

}  // namespace
