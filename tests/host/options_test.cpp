#include "host/options.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <vector>

#include "host/readable_line.h"
#include "host/web/request_guard.h"

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
  EXPECT_FALSE(plain.boot.startLocked || plain.script || plain.stats || plain.log || plain.seed);

  const auto full = std::get<Options>(parse({"--root", "/r", "--device=ipad", "--no-tweaks", "--locked",
                                             "--script", "-", "--stats", "--log", "l.json", "--seed", "7"}));
  EXPECT_EQ(full.boot.root, "/r");
  EXPECT_EQ(full.boot.model.size.width, 768);
  EXPECT_FALSE(full.boot.loadTweaks);
  EXPECT_TRUE(full.boot.startLocked);
  EXPECT_EQ(full.script, standardInput);
  EXPECT_TRUE(full.stats);
  EXPECT_EQ(full.log, "l.json");
  EXPECT_EQ(full.seed, 7u);
  EXPECT_EQ(std::get<EarlyExit>(parse({"--help"})).exitCode, 0);
  EXPECT_EQ(std::get<EarlyExit>(parse({"--version"})).text, "springboard 1.0.0\n");
}

TEST(Options, ServingNeedsNoMoreThanAWordAndATokenWhereOthersCanReachIt) {
  struct Case {
    std::vector<const char*> arguments;
    std::string authority, token;  // "*": one made up.
  };
  const Case cases[] = {
      {{"--serve"}, "127.0.0.1:8080", ""},
      {{"--serve", "9000"}, "127.0.0.1:9000", ""},
      {{"--serve", "[::1]:9000", "--token", "a-token_1"}, "[::1]:9000", "a-token_1"},
      {{"--serve", "0.0.0.0:9000", "--token"}, "0.0.0.0:9000", "*"},
  };
  for (auto& [arguments, authority, token] : cases) {
    const auto options = std::get<Options>(parse(arguments));
    EXPECT_EQ(options.serve->address.authority(), authority);
    EXPECT_EQ(options.serve->token.has_value(), !token.empty()) << authority;
    EXPECT_TRUE(token == "*" ? isToken(*options.serve->token) : options.serve->token.value_or("") == token);
  }
}

TEST(Options, WrongOnesAreRefusedInOneLine) {
  const std::vector<std::vector<const char*>> cases = {{"--device", "iphone-9"},
                                                       {"--seed", "many"},
                                                       {"--seed", "-1"},
                                                       {"--seed", ""},
                                                       {"--root", ""},
                                                       {"--script"},
                                                       {"--color"},
                                                       {"stray"},
                                                       {"--serve", "nowhere:80"},
                                                       {"--serve", "192.168.1.2:80"},
                                                       {"--serve", "--token", "short"},
                                                       {"--locked", "--token"},
                                                       {"--stats"},
                                                       {"--serve", "--stats"},
                                                       {"--script", "s", "--serve"}};
  for (auto& arguments : cases) {
    const auto parsed = parse(arguments);
    const auto* refusal = std::get_if<EarlyExit>(&parsed);
    ASSERT_TRUE(refusal) << arguments.front();
    EXPECT_EQ(refusal->exitCode, 2);
    EXPECT_EQ(std::ranges::count(refusal->text, '\n'), 1) << refusal->text;
    EXPECT_NE(refusal->text.find(arguments.back()), std::string::npos) << refusal->text;
  }
}

TEST(ReadableLine, SpellsControlCharactersAndLosesNoMoreThanItsMiddle) {
  std::string letters;
  for (int i = 0; i < 300; ++i) letters += "é";
  // Where the rest are letters, every "é" left out.
  const std::pair<std::string, std::string> cases[] = {{"a\nb\x7f: é", "a\\x0ab\\x7f: "},
                                                       {"a" + letters + ": cause", "a ... : cause"},
                                                       {"ab" + letters + ": a cause", "ab ... : a cause"},
                                                       {std::string(400, '\xbf'), " ... "}};
  for (const auto& [message, rest] : cases) {
    const std::string line = asReadableLine(message);
    EXPECT_EQ(std::regex_replace(line, std::regex("é"), ""), rest) << line;
    EXPECT_LE(line.size(), 300u);
  }
  EXPECT_EQ(asReadableLine(std::string(300, 'a')), std::string(300, 'a'));
}

}  // namespace
}  // namespace host
