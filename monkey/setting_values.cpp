#include "monkey/setting_values.h"

#include <fmt/format.h>

#include <map>
#include <vector>

#include "prefs/preference_files.h"
#include "prefs/settings.h"
#include "tests/support/test_device.h"

namespace monkey {
namespace {

using namespace vistrel;

constexpr int percentLegal = 80;
constexpr int percentDefault = 60;  // Of flags: some of them leave little of the switcher to try.
constexpr std::string_view favouriteKeys[] = {"fav1", "fav2", "fav3", "fav4", "fav5"};

const std::vector<std::string_view> selectionWords{word::grow,     word::roll,       word::shrink,
                                                   word::bounceUp, word::bounceDown, word::none};
const std::vector<std::string_view> actionWords{word::lock, word::home, word::none};
const std::map<std::string, std::vector<std::string_view>> wordsByKey{
    {"swipeDirection", {word::right, word::left}},
    {"animationStyle", {word::push, word::flat}},
    {"flatAnimationStyle", {word::side, word::split, word::up, word::down}},
    {"appNamePosition", {word::top, word::bottom}},
    {"iconAnimation", selectionWords},
    {"nameAnimation", selectionWords},
    {"background", {word::linen, word::color, word::none}},
    {"swipeUpAction", actionWords},
    {"swipeDownAction", actionWords},
};

constexpr const char* anyValues[] = {"<true/>",
                                     "<false/>",
                                     "<integer>0</integer>",
                                     "<integer>-1</integer>",
                                     "<integer>2147483647</integer>",
                                     "<integer>-2147483648</integer>",
                                     "<integer>9223372036854775807</integer>",
                                     "<real>nan</real>",
                                     "<real>inf</real>",
                                     "<real>-inf</real>",
                                     "<real>1e38</real>",
                                     "<real>-1e300</real>",
                                     "<real>1e-40</real>",
                                     "<string></string>",
                                     "<string>0.5</string>",
                                     "<string>nobody knows this word</string>",
                                     "<data></data>",
                                     "<data>YnBsaXN0MDA=</data>",
                                     "<date>2001-01-01T00:00:00Z</date>",
                                     "<array><true/></array>",
                                     "<dict/>"};

const PropertyListDictionary& defaults() {
  static const PropertyListDictionary preferences = defaultPreferences();
  return preferences;
}

/// The value alone, as the writer of property lists spells it, without line breaks.
std::string fragmentOf(const PropertyList& value) {
  const NSData document = dataWithPropertyList(PropertyListArray{value}, PropertyListFormat::Xml);
  std::string xml(document.begin(), document.end());
  constexpr std::string_view opening = "<array>", closing = "</array>";
  const auto begin = xml.find(opening) + opening.size();
  xml = xml.substr(begin, xml.rfind(closing) - begin);
  std::erase_if(xml, [](char character) { return character == '\n' || character == '\t'; });
  return xml;
}

std::string text(std::string_view content) { return fmt::format("<string>{}</string>", content); }

std::string legalValue(const std::string& key, Random& random) {
  if (auto words = wordsByKey.find(key); words != wordsByKey.end()) return text(random.oneOf(words->second));
  const PropertyList* byDefault = find(defaults(), key);
  if (!byDefault) return text(random.oneOf(test::testBundles));
  if (auto* flag = byDefault->as<bool>()) {
    const bool isSet = random.chance(percentDefault) ? *flag : !*flag;
    return isSet ? "<true/>" : "<false/>";
  }
  if (byDefault->as<std::int64_t>()) return fmt::format("<integer>{}</integer>", random.below(60));
  if (byDefault->as<double>()) return fmt::format("<real>{}</real>", random.between(0.1f, 1.5f));
  static const std::string colors[] = {fragmentOf(test::archived(1, 0, 0)),
                                       fragmentOf(test::archived(0, 0.5f, 1))};
  return random.oneOf(colors);
}

}  // namespace

std::string randomSettingKey(Random& random) {
  if (random.chance(15)) return std::string(random.oneOf(favouriteKeys));
  return std::next(defaults().begin(), random.below(static_cast<int>(defaults().size())))->first;
}

std::string randomSettingValue(const std::string& key, Random& random) {
  return random.chance(percentLegal) ? legalValue(key, random) : random.oneOf(anyValues);
}

}  // namespace monkey
