#include "host/settings/preference_panes.h"

#include "host/failure.h"
#include "host/settings/bad_setting.h"
#include "prefs/preference_files.h"
#include "switcher/card_scroller.h"
#include "switcher/shared_state.h"
#include "tests/support/temporary_root.h"
#include "tests/support/test_device.h"

namespace host::test {
namespace {

using Dictionary = PropertyListDictionary;
using vistrel::test::archived;

constexpr const char* paneFile = "/Library/PreferenceLoader/Preferences/Some.plist";
constexpr const char* settingsFile = "/var/mobile/Library/Preferences/some.plist";
constexpr const char* listFile = "/var/mobile/Library/Preferences/list.plist";

Dictionary item(const char* cell, const char* key, Dictionary more) {
  more.insert(
      {{"cell", cell}, {"label", "L"}, {"defaults", "some"}, {"key", key}, {"PostNotification", "N"}});
  return more;
}
const PropertyListArray words{"A", "B"}, titles{"Ay", "Bee"};
const Dictionary flag = item("PSSwitchCell", "flag", {{"default", false}});
const Dictionary choice =
    item("PSLinkListCell", "choice", {{"default", "A"}, {"validValues", words}, {"validTitles", titles}});
const Dictionary whole =
    item("PSSliderCell", "whole", {{"default", 15}, {"min", 5}, {"max", 60}, {"step", 1}});
const Dictionary real =
    item("PSSliderCell", "real", {{"default", 0.7}, {"min", 0.3}, {"max", 1}, {"step", 0.05}});
const Dictionary color = item("ColorCell", "color", {{"default", "#808080"}, {"requiresRespring", true}});
const Dictionary app = item("AppCell", "app", {});
const Dictionary list = item("AppListCell", "", {{"keyPrefix", "P-"}, {"defaults", "list"}});
const PropertyList group = Dictionary{{"cell", "PSGroupCell"}, {"footerText", "F"}};
const PropertyListArray everyCell{group, flag, choice, whole, real, color, app, list};

const char* everyDefault = R"([{"title": "T", "items": [
  {"cell": "group", "label": "", "footer": "F"},
  {"cell": "switch", "domain": "some", "key": "flag", "label": "L", "value": false, "respring": false},
  {"cell": "choice", "domain": "some", "key": "choice", "label": "L", "value": "A",
   "choices": [{"value": "A", "title": "Ay"}, {"value": "B", "title": "Bee"}], "respring": false},
  {"cell": "slider", "domain": "some", "key": "whole", "label": "L", "value": 15,
   "min": 5, "max": 60, "step": 1, "respring": false},
  {"cell": "slider", "domain": "some", "key": "real", "label": "L", "value": 0.7,
   "min": 0.3, "max": 1, "step": 0.05, "respring": false},
  {"cell": "color", "domain": "some", "key": "color", "label": "L", "value": "#808080", "respring": true,
   "due": false},
  {"cell": "app", "domain": "some", "key": "app", "label": "L", "value": null, "respring": false},
  {"cell": "apps", "domain": "list", "keyPrefix": "P-", "label": "L",
   "values": {"a.one": false, "a.two": false}, "respring": false}]}])";

class PreferencePanesTest : public TemporaryRoot {
 protected:
  static PreferencePanes panesOf(const PropertyList& items) {
    writeDictionaryToFile({{"entry", Dictionary{{"label", "T"}}}, {"items", items}}, paneFile);
    return PreferencePanes({{"a.one", "One"}, {"a.two", "Two"}});
  }
  static void put(const NSData& data) { files().write(settingsFile, data, NSFileManager::Writing::Plain); }
  static std::optional<Dictionary> file(const char* path) { return dictionaryWithContentsOfFile(path); }
};

TEST_F(PreferencePanesTest, ShowWhatTheFilesHoldAndDefaultsWhereTheyHoldNothingUsable) {
  PreferencePanes panes = panesOf(everyCell);
  EXPECT_EQ(panes.describe(), Json::parse(everyDefault));
  Dictionary wrong;
  for (const char* key : {"flag", "choice", "whole", "real", "color", "app"}) wrong.emplace(key, NSData{1});
  writeDictionaryToFile(wrong, settingsFile);
  EXPECT_EQ(panes.describe(), Json::parse(everyDefault));
  Dictionary odd{{"flag", 2}, {"choice", "Z"}, {"whole", 70.9}, {"app", "uninstalled"}};
  odd.insert({{"real", double(0.2f)}, {"color", archived(1, 0.5f, 0)}});
  writeDictionaryToFile(odd, settingsFile);
  writeDictionaryToFile({{"P-a.two", 1}, {"P-uninstalled", true}}, listFile);
  Json shown = Json::array();
  const Json items = panes.describe()[0]["items"];
  for (std::size_t i = 1; i < items.size(); ++i) shown.push_back(items[i].value("value", items[i]["values"]));
  EXPECT_EQ(shown, Json::parse(R"([true, "Z", 70, 0.2, "#ff8000", "uninstalled",
                                   {"a.one": false, "a.two": true}])"));
  EXPECT_TRUE(items[5]["due"]);  // The colour differs from the one at the start.
}

TEST_F(PreferencePanesTest, StoreWhatAControlCanHoldAndStartAMissingFileFromItsDefaults) {
  PreferencePanes panes = panesOf(everyCell);
  const float gray = 128.0f / 255;
  Dictionary expected{{"choice", "A"}, {"whole", 15}, {"real", 0.7}, {"color", archived(gray, gray, gray)}};
  const std::tuple<const char*, Json, PropertyList> cases[] = {
      {"flag", true, true},      {"choice", "B", "B"},
      {"whole", 60, 60},         {"whole", 20.0, 20},
      {"real", 0.3, 0.3},        {"real", 1, 1.0},
      {"app", "a.two", "a.two"}, {"color", "#FF0055", archived(1, 0, 85.0f / 255)}};
  for (const auto& [key, value, stored] : cases) {
    panes.set("some", key, value);
    expected.insert_or_assign(key, stored);
    EXPECT_EQ(file(settingsFile), expected) << key << value;
  }
  panes.set("some", "app", nullptr);
  expected.erase("app");
  EXPECT_EQ(file(settingsFile), expected);
  panes.set("list", "P-a.one", true);
  EXPECT_EQ(file(listFile), (Dictionary{{"P-a.one", true}}));
  EXPECT_EQ(panes.notifications(), std::set<std::string>{"N"});

  put(dataWithPropertyList(Dictionary{{"other", 1}}, PropertyListFormat::Binary));
  panes.set("some", "flag", true);
  EXPECT_EQ(file(settingsFile), (Dictionary{{"other", 1}, {"flag", true}}));
  EXPECT_EQ(files().contents(settingsFile)->front(), '<') << "XML";
  put(bytes("<plist><dict>"));
  panes.set("some", "flag", true);
  EXPECT_EQ(file(settingsFile)->size(), 5u) << "every default";
  std::filesystem::remove(root() / (settingsFile + 1));
  std::filesystem::create_directory(root() / (settingsFile + 1));
  EXPECT_THROW(panes.set("some", "flag", true), Failure);
}

TEST_F(PreferencePanesTest, RefuseEverythingElseInOneLineAndChangeNothing) {
  PreferencePanes panes = panesOf(everyCell);
  const auto refusal = [&](const char* domain, const std::string& key, const Json& value) -> std::string {
    try {
      panes.set(domain, key, value);
      return "taken";
    } catch (const BadSetting& cause) {
      return cause.what();
    }
  };
  EXPECT_EQ(refusal("some", "whole", 61), "some whole: not a whole number from 5 to 60");
  EXPECT_EQ(refusal("some", "two\nlines", true), "some two lines: no pane has this key");
  const std::tuple<const char*, const char*, std::vector<Json>> cases[] = {
      {"some", "flag", {1, "true", nullptr, Json::array()}},
      {"some", "choice", {"C", "", "Ay", 0, nullptr}},
      {"some", "whole", {61, 4, 20.5, "20", true, 1e300, nullptr}},
      {"some", "color", {"#ff800", "#ff80000", "ff80000", "#gg0000", "#+f8000", 0, nullptr}},
      {"some", "app", {"a.three", "", 1, true}},
      {"list", "P-a.one", {1, nullptr}},
      {"list", "P-a.three", {true}},
      {"some", "", {true, nullptr}}};
  for (const auto& [domain, key, values] : cases)
    for (const Json& value : values)
      EXPECT_TRUE(refusal(domain, key, value).starts_with(std::string(domain) + " " + key + ": "))
          << key << value;
  EXPECT_FALSE(files().fileExists(settingsFile) || files().fileExists(listFile));
}

TEST_F(PreferencePanesTest, AreLeftOutWithALineWhereAnythingIsNotUsable) {
  using Case = std::tuple<Dictionary, const char*, PropertyList, const char*>;
  for (const auto& [good, key, value, cause] :
       {Case{flag, "cell", "PSButtonCell", "unknown cell PSButtonCell"},
        Case{flag, "label", 1, "no usable label"}, Case{flag, "key", "", "empty key"},
        Case{flag, "defaults", "../x", "defaults is no plain file name"},
        Case{flag, "default", 1, "default is not true or false"},
        Case{flag, "requiresRespring", "yes", "no usable requiresRespring"},
        Case{choice, "validTitles", PropertyListArray{"A"}, "validValues and validTitles do not match"},
        Case{choice, "default", "C", "default is not one of A, B"},
        Case{whole, "max", 5, "min, max and step span no range"},
        Case{whole, "default", 1.5, "default is not a whole number from 5 to 60"}}) {
    Dictionary row = good;
    row.insert_or_assign(key, value);
    PreferencePanes panes = panesOf(PropertyListArray{flag, row});
    EXPECT_EQ(panes.warnings(), std::vector{paneFile + std::string(": item 2: ") + cause});
  }
  EXPECT_EQ(panesOf(PropertyListArray(200, group)).warnings(), std::vector<std::string>());
  EXPECT_EQ(panesOf(PropertyListArray(201, group)).warnings(),
            std::vector{paneFile + std::string(": more than 200 items")});
  const Dictionary large{{"cell", "PSGroupCell"},
                         {"label", std::string(600'000, '\\')}};  // Each one escaped.
  EXPECT_EQ(panesOf(PropertyListArray{large}).warnings(),
            std::vector{paneFile + std::string(": the settings would take more than 1048576 bytes")});
  EXPECT_EQ(panesOf("text").warnings(), std::vector{paneFile + std::string(": no usable items")});
}

TEST(SwitcherPane, HasEveryKeyAtItsDefaultAndTakesEffect) {
  vistrel::test::TestDevice device;
  PreferencePanes panes(device.springBoard().applications());
  EXPECT_EQ(panes.warnings(), std::vector<std::string>());
  const Dictionary written = device.readPreferences();  // By the switcher, for want of a file.
  const Json shown = panes.describe();
  std::filesystem::remove(device.pathOf(vistrel::preferencesPath));
  EXPECT_EQ(panes.describe(), shown);
  const char* switcher = "com.zantric.vistrel";
  panes.set(switcher, "swipeDirection", "Left");
  const Dictionary started = device.readPreferences();
  EXPECT_EQ(started.size(), written.size());
  for (const auto& [key, value] : written) {
    ASSERT_TRUE(started.contains(key)) << key;
    EXPECT_EQ(started.at(key).value().index(), value.value().index()) << key << " is of another type";
  }
  panes.set(switcher, "visibleEdge", 40);
  for (const char* key : {"fav1", "fav2", "fav3", "fav4", "fav5"})
    panes.set(switcher, key, "com.example.two");
  panes.set(switcher, "favouritesEnabled", true);
  panes.set(switcher, "fav1", nullptr);
  panes.set("com.zantric.vistrel-apps", "ALValue-com.example.one", true);
  device.pump(0);
  EXPECT_EQ(vistrel::switcherWindow->frame().origin.x, -280);
  EXPECT_EQ(*vistrel::switcherWindow->recentIDs(), NSStringArray(4, "com.example.two"));
  device.launch("com.example.one");
  EXPECT_EQ(vistrel::switcherWindow->alpha(), 0);
}

}  // namespace
}  // namespace host::test
