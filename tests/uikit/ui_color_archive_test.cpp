#include "platform/uikit/ui_color_archive.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using Dictionary = PropertyListDictionary;
using Array = PropertyListArray;

NSData text(std::string_view characters) { return NSData(characters.begin(), characters.end()); }

Dictionary with(Dictionary dictionary, const Dictionary& changes) {
  for (const auto& [key, value] : changes) dictionary.insert_or_assign(key, value);
  return dictionary;
}

Dictionary without(Dictionary dictionary, const std::string& key) {
  dictionary.erase(key);
  return dictionary;
}

// clang-format off
const Dictionary colorClass = {{"$classname", "UIColor"}, {"$classes", Array{"UIColor", "NSObject"}}};
const Dictionary colorSubclass = {{"$classname", "UIDeviceRGBColor"}, {"$classes", Array{"UIDeviceRGBColor", "UIColor"}}};
const Dictionary otherClass = {{"$classname", "NSColor"}, {"$classes", Array{"NSColor", "NSObject"}}};
const Dictionary orangeObject = {{"UIColorComponentCount", 4}, {"UIRed", 1.0}, {"UIGreen", 0.5}, {"UIBlue", 0.0},
                            {"UIAlpha", 0.25}, {"NSRGB", text("1 0.5 0")}, {"NSColorSpace", 2}};
const Dictionary grayObject = {{"UIColorComponentCount", 2}, {"UIWhite", 0.5}, {"UIAlpha", 1.0},
                          {"NSWhite", text("0.5")}, {"NSColorSpace", 4}};
const Dictionary doublesObject = {{"UIRed-Double", 1.0}, {"UIGreen-Double", 0.5}, {"UIBlue-Double", 0.0},
                             {"UIAlpha-Double", 0.25}};
// clang-format on

Dictionary archive(const Dictionary& object, const Dictionary& cls = colorClass) {
  return {{"$archiver", "NSKeyedArchiver"},
          {"$version", 100000},
          {"$top", Dictionary{{"root", PropertyListUid{1}}}},
          {"$objects", Array{"$null", with({{"$class", PropertyListUid{2}}}, object), cls}}};
}

/// What an archive gives in binary form, after a check that its XML form gives the same.
std::optional<UIColor> read(const Dictionary& list) {
  const auto color = unarchiveColorWithData(dataWithPropertyList(list, PropertyListFormat::Binary));
  EXPECT_EQ(unarchiveColorWithData(dataWithPropertyList(list, PropertyListFormat::Xml)), color);
  return color;
}

TEST(ColorArchive, EveryFormInTheWildIsRead) {
  const UIColor orange = UIColor::colorWithRed(1, 0.5f, 0, 0.25f);
  const UIColor opaqueOrange = UIColor::colorWithRed(1, 0.5f, 0, 1);
  const UIColor gray = UIColor::grayColor();
  const std::pair<Dictionary, UIColor> cases[] = {
      {orangeObject, orange},
      {without(orangeObject, "UIColorComponentCount"), orange},
      {with(orangeObject, {{"UIRed", 1}, {"UIBlue", 0}}), orange},
      {with(orangeObject, {{"UIRed-Double", 0.1}, {"NSRGB", text("?")}, {"UISystemColorName", "orange"}}),
       orange},
      {doublesObject, orange},
      {without(doublesObject, "UIAlpha-Double"), opaqueOrange},
      {{{"NSRGB", text("1 0.5 0")}}, opaqueOrange},
      {{{"NSRGB", text(std::string_view("1 0.5 0 0.25\0", 13))}}, orange},
      {without(orangeObject, "UIGreen"), orange},
      {grayObject, gray},
      {without(grayObject, "UIColorComponentCount"), gray},
      {{{"UIWhite-Double", 0.5}, {"UIAlpha", 1.0}}, gray},
      {{{"NSWhite", text("0.5")}}, gray},
      {{{"NSWhite", text("0.5 0.25")}}, UIColor::colorWithWhite(0.5f, 0.25f)},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(&each - cases);
    EXPECT_EQ(read(archive(each.first)), each.second);
  }
  EXPECT_EQ(read(archive(orangeObject, colorSubclass)), orange);
}

TEST(ColorArchive, AnythingElseGivesNothing) {
  const Dictionary good = archive(orangeObject);
  ASSERT_TRUE(read(good));
  std::vector<Dictionary> broken;
  for (const char* key : {"$archiver", "$version", "$top", "$objects"}) {
    broken.push_back(without(good, key));
    broken.push_back(with(good, {{key, "NSArchiver"}}));
  }
  // clang-format off
  const PropertyList roots[] = {PropertyListUid{0}, PropertyListUid{2}, PropertyListUid{3}, 1, orangeObject};
  const std::pair<const char*, PropertyList> values[] = {
      {"$class", PropertyListUid{1}}, {"$class", "UIColor"}, {"UIColorComponentCount", 3},
      {"UIColorComponentCount", 2}, {"UIColorComponentCount", "4"}, {"UIRed", "1"}, {"UIRed", true},
      {"UIRed", PropertyListUid{1}}, {"UIGreen", -0.01}, {"UIBlue", 1.01}, {"UIAlpha", 2.0},
      {"UIAlpha", NSData()}, {"UIRed", std::nan("")}, {"UIRed", std::numeric_limits<double>::infinity()}};
  const Dictionary objects[] = {{}, {{"UIRed", 1.0}, {"UIGreen", 1.0}}, {{"NSRGB", "1 1 1"}},
                                {{"UIRed", "1"}, {"NSRGB", text("1 1 1")}}};
  // clang-format on
  for (const PropertyList& root : roots) broken.push_back(with(good, {{"$top", Dictionary{{"root", root}}}}));
  for (const Dictionary& cls : {Dictionary(), otherClass}) broken.push_back(archive(orangeObject, cls));
  for (const auto& [key, value] : values) broken.push_back(archive(with(orangeObject, {{key, value}})));
  for (const char* numbers : {"", "1 1", "1 1 1 1 1", "1 1 x", "1,1,1", "1 1 2", "1 1 nan"}) {
    broken.push_back(archive({{"NSRGB", text(numbers)}}));
  }
  for (const Dictionary& object : objects) broken.push_back(archive(object));
  for (const Dictionary& each : broken) EXPECT_FALSE(read(each)) << &each - broken.data();
  EXPECT_FALSE(unarchiveColorWithData(text("garbage")));
}

TEST(ColorArchive, WritesGreysInTwoComponentsAndOthersInFour) {
  const auto objectOf = [](const UIColor& color) {
    return propertyListWithData(archivedDataWithRootObject(color));
  };
  EXPECT_EQ(objectOf(UIColor::colorWithRed(1, 0.5f, 0, 0.25f)),
            archive(with(orangeObject, {{"NSRGB", text("1 0.5 0 0.25")}})));
  EXPECT_EQ(objectOf(UIColor::grayColor()), archive(grayObject));
  for (const UIColor& color :
       {UIColor::darkGrayColor(), UIColor::clearColor(), UIColor::colorWithRed(0.1f, 0.2f, 0.3f, 0.4f)}) {
    EXPECT_EQ(unarchiveColorWithData(archivedDataWithRootObject(color)), color);
  }
}

}  // namespace
