#include "host/options.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace host {
namespace {

std::variant<Options, EarlyExit> parse(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "springboard");
  return parseOptions(int(arguments.size()), arguments.data());
}

TEST(Options, AreReadFromTheCommandLine) {
  const auto plain = std::get<Options>(parse({}));
  EXPECT_EQ(plain.boot.model.name, "iphone-4");
  EXPECT_TRUE(plain.boot.loadTweaks);
  EXPECT_FALSE(plain.boot.startLocked || plain.script || plain.log || plain.seed);

  const auto full = std::get<Options>(parse({"--root", "/r", "--device=ipad", "--no-tweaks", "--locked",
                                             "--script", "-", "--log", "l.json", "--seed", "7"}));
  EXPECT_EQ(full.boot.root, "/r");
  EXPECT_EQ(full.boot.model.size.width, 768);
  EXPECT_FALSE(full.boot.loadTweaks);
  EXPECT_TRUE(full.boot.startLocked);
  EXPECT_EQ(full.script, standardInput);
  EXPECT_EQ(full.log, "l.json");
  EXPECT_EQ(full.seed, 7u);
  EXPECT_EQ(std::get<EarlyExit>(parse({"--help"})).exitCode, 0);
  EXPECT_EQ(std::get<EarlyExit>(parse({"--version"})).text, "springboard 1.0.0\n");
}

TEST(Options, WrongOnesAreRefusedInOneLine) {
  const std::vector<std::vector<const char*>> cases = {
      {"--device", "iphone-9"}, {"--seed", "many"}, {"--seed", "-1"}, {"--script"}, {"--color"}, {"stray"}};
  for (auto& arguments : cases) {
    const auto parsed = parse(arguments);
    const auto* refusal = std::get_if<EarlyExit>(&parsed);
    ASSERT_TRUE(refusal) << arguments.front();
    EXPECT_EQ(refusal->exitCode, 2);
    EXPECT_EQ(std::ranges::count(refusal->text, '\n'), 1) << refusal->text;
    EXPECT_NE(refusal->text.find(arguments.back()), std::string::npos) << refusal->text;
  }
}

}  // namespace
}  // namespace host
