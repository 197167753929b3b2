#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>

#include "tests/support/temporary_root.h"

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

std::string contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The real host with the real library, on a copy of the staged root.
class Process : public TemporaryRoot {
 protected:
  struct Result {
    int exit;
    std::string output, errors;
    std::vector<json> log;

    int count(const std::string& event) const {
      return static_cast<int>(
          std::count_if(log.begin(), log.end(), [&](const json& line) { return line["event"] == event; }));
    }
  };

  Process() {
    fs::copy(STAGED_ROOT, root(), fs::copy_options::recursive);
    fs::remove_all(root() / "var/mobile");
  }

  Result run(const std::string& options, const std::string& script,
             const std::string& usual = "--root . --script in.script") {
    std::ofstream(root() / "in.script") << script;
    fs::remove(root() / "log");
    const std::string command = "cd '" + root().string() + "' && " + SPRINGBOARD + " --log log " + usual +
                                ' ' + options + " >out 2>err";
    const int status = std::system(command.c_str());
    Result result{WEXITSTATUS(status), contents(root() / "out"), contents(root() / "err"), {}};
    std::istringstream lines(contents(root() / "log"));
    for (std::string line; std::getline(lines, line);) result.log.push_back(json::parse(line));
    return result;
  }
};

constexpr const char* pickSecondIcon = R"(
launch com.example.maps
launch com.example.music
launch com.example.weather
launch com.example.mail
touch down 317 240
wait 0.1
touch move 290 240
wait 0.4
touch move 136.7 240    # the second of three slots
wait 0.5
describe-all open.json
touch up 136.7 240
wait 1
describe-all
)";

TEST_F(Process, ASwipeOpensTheAppUnderTheFinger) {
  const Result result = run("", pickSecondIcon);
  EXPECT_EQ(result.exit, 0) << result.errors;
  EXPECT_EQ(result.count("library-loaded"), 1);
  EXPECT_EQ(result.count("hook"), 19);
  std::vector<std::string> activated;
  for (const json& line : result.log) {
    if (line["event"] == "app-activated")
      activated.push_back(line["by"].get<std::string>() + ' ' + line["bundle"].get<std::string>());
  }
  EXPECT_EQ(activated, (std::vector<std::string>{"icon com.example.maps", "icon com.example.music",
                                                 "icon com.example.weather", "icon com.example.mail",
                                                 "switcher com.example.music"}));
  const json after = json::parse(result.output);
  EXPECT_EQ(after["device"]["frontmost"], "com.example.music");
  EXPECT_EQ(after["device"]["recents"][0], "com.example.music");
  const json window = after["windows"].back();
  EXPECT_EQ(window["class"], "CardScroller");
  EXPECT_EQ(window["frame"], json::parse("[305,0,320,480]"));
  EXPECT_EQ(window["background"], "pattern");
  const json open = json::parse(contents(root() / "open.json"))["windows"].back();
  EXPECT_EQ(open["frame"], json::parse("[0,0,320,480]"));
  EXPECT_EQ(open["subviews"][0]["class"], "SBLinenView");
  EXPECT_EQ(open["subviews"][1]["class"], "CardDragger");
  EXPECT_TRUE(fs::exists(root() / "var/mobile/Library/Caches/VitsrelSB.png"));
  EXPECT_TRUE(fs::exists(root() / "var/mobile/Library/Preferences/com.zantric.vistrel.plist"));
}

TEST_F(Process, MeasuringItsFramesChangesNothingOfARun) {
  const Result plain = run("", pickSecondIcon);
  fs::remove_all(root() / "var/mobile");
  const Result measured = run("--stats", pickSecondIcon);
  EXPECT_EQ(measured.exit, 0);
  EXPECT_EQ(measured.log, plain.log);
  const json before = json::parse(plain.output), after = json::parse(measured.output);
  EXPECT_EQ(after["time"], before["time"]);
  EXPECT_EQ(after["device"], before["device"]);
  EXPECT_EQ(after["windows"].back(), before["windows"].back());
  EXPECT_TRUE(std::regex_match(
      measured.errors,
      std::regex("frames drawn: [1-9]\\d+\nframes skipped: [1-9]\\d+\nrender time: .*\\(max\\)\n")))
      << measured.errors;
  const Result failed = run("--stats", "fly");
  EXPECT_EQ(failed.exit, 2);
  EXPECT_EQ(failed.errors, "in.script:1: unknown verb \"fly\"\nframes drawn: 0\nframes skipped: 0\n");
}

TEST_F(Process, WithoutTheLibraryNothingOfTheSwitcherIsThere) {
  const Result result =
      run("--no-tweaks",
          pickSecondIcon + std::string("activator receive\nnotify-post com.zantric.vistrel.prefsChanged"));
  EXPECT_EQ(result.exit, 0) << result.errors;
  EXPECT_EQ(result.count("library-loaded") + result.count("hook"), 0);
  EXPECT_EQ(result.output.find("CardScroller"), std::string::npos);
  EXPECT_EQ(json::parse(result.output)["device"]["frontmost"], "com.example.mail");
  EXPECT_EQ(result.log.back()["delivered"], 0);
  EXPECT_FALSE(result.log.end()[-2]["handled"]);
  EXPECT_FALSE(fs::exists(root() / "var/mobile/Library/Caches/VitsrelSB.png"));
  EXPECT_FALSE(fs::exists(root() / "var/mobile/Library/Preferences/com.zantric.vistrel.plist"));
}

TEST_F(Process, FilesThatAreNoneDoNotKeepItFromRunning) {
  int kind = 0;
  const fs::path preferences = "var/mobile/Library/Preferences";
  const struct {
    fs::path path;
    int messages;
  } cases[] = {{preferences, 1},
               {preferences / "com.zantric.vistrel.plist", 0},
               {preferences / "com.zantric.vistrel-apps.plist", 0},
               {preferences / "com.apple.springboard.plist", 1},
               {"var/mobile/Library/Caches/VitsrelSB.png", 0},
               {"Library/Vistrel/VistrelGrab.png", 0},
               {"Library/Wallpaper/Home@2x.png", 0},
               {"Library/MobileSubstrate/DynamicLibraries/Vistrel.plist", 1},
               {"Library/MobileSubstrate/DynamicLibraries/Vistrel.dylib", 1},
               {"Applications/Camera.app/Info.plist", 1},
               {"Applications/Mail.app/Icon@2x.png", 0},
               {"Applications/Mail.app/Default@2x.png", 0}};
  for (const auto& [path, messages] : cases) {
    SCOPED_TRACE(path);
    fs::remove_all(root() / "var/mobile");
    fs::create_directories((root() / path).parent_path());
    if (fs::exists(root() / path)) fs::rename(root() / path, root() / "aside");
    const char* makers[] = {"mkfifo '", "mkdir '", "ln -s nowhere '", "truncate -s 1T '"};
    ASSERT_EQ(std::system((makers[kind++ % 4] + (root() / path).string() + "'").c_str()), 0);
    const Result result = run("", pickSecondIcon);
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), messages) << result.errors;
    fs::remove(root() / path);
    if (fs::exists(root() / "aside")) fs::rename(root() / "aside", root() / path);
  }
}

TEST_F(Process, SaysWhatIsWrongInOneLine) {
  struct Case {
    const char *options, *script, *message;
    int exit;
    const char* usual = "--root . --script in.script";
  };
  const Case cases[] = {
      {"", "wait 1\nfly 3", "in.script:2: ", 2},
      {"", "launch com.example.nowhere", "in.script:1: ", 1},
      {"", "touch move 1 1", "in.script:1: ", 1},
      {"", "", "standard input: ", 1, "--root . --script - <&-"},
      {"", "list-apps", "in.script:1: standard output ", 1,
       "--root . --script in.script >&- 2>err; exit $?;"},
      {"", "", "standard output ", 1, "--root . --serve 0 >/dev/full 2>err; exit $?;"},
      {"", "", "standard output ", 1, "--version >/dev/full 2>err; exit $?;"},
      {"--device tablet", "", "tablet", 2},
      {"--script missing.script", "", "missing.script", 1, "--root ."},
      {"--root /nowhere/at/all", "", "/nowhere/at/all", 1, ""},
  };
  for (const Case& c : cases) {
    const Result result = run(c.options, c.script, c.usual);
    EXPECT_EQ(result.exit, c.exit) << c.options << c.script << result.errors;
    EXPECT_NE(result.errors.find(c.message), std::string::npos) << result.errors;
    EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 1) << result.errors;
  }
}

}  // namespace
