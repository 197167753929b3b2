// What comes in from the web, before it reaches the device.

#include <gtest/gtest.h>

#include "host/web/client_message.h"
#include "host/web/rate_limit.h"
#include "host/web/request_guard.h"

namespace host {
namespace {

TEST(ClientMessage, IsAVerbOfThePageOrOneOfTheScriptsThatTakesNoTime) {
  const auto touch = std::get<TouchMessage>(parseClientMessage(
      R"({"verb":"touch","arguments":["move",1.5,-2e1,"--finger",4],"time":1500,"number":4294967295})"));
  EXPECT_EQ(touch.touch.action, TouchAction::Move);
  EXPECT_EQ(touch.touch.point, (CGPoint{1.5f, -20}));
  EXPECT_EQ(touch.touch.finger, 4);
  EXPECT_EQ(touch.stamp, 1.5);
  EXPECT_EQ(touch.number, 4294967295u);
  const auto set =
      std::get<SetMessage>(parseClientMessage(R"({"verb":"set","arguments":["d","k",{"a":[1]}]})"));
  EXPECT_EQ(set.domain + set.key + set.value.dump(), R"(dk{"a":[1]})");
  EXPECT_TRUE(std::holds_alternative<UnlockCommand>(parseClientMessage(R"({"verb":"unlock"})")));
}

TEST(ClientMessage, SaysWhatIsWrongWithAnyOther) {
  const std::pair<std::string, const char*> cases[] = {
      {"", "no JSON object"},
      {"[]", "no JSON object"},
      {"{\"verb\":", "no JSON object"},
      {std::string(4000, '['), "no JSON object"},
      {"{}", "no verb"},
      {R"({"verb":1})", "no verb"},
      {R"({"verb":"dance"})", "unknown verb \"dance\""},
      {R"({"verb":"unlock","arguments":{}})", "arguments must be a list"},
      {R"({"verb":"launch","arguments":[true]})", "launch: an argument is neither text nor a number"},
      {R"({"verb":"launch","arguments":[]})", "launch: too few arguments; usage: launch BUNDLE"},
      {R"({"verb":"touch","arguments":["down",1,2],"time":"now"})",
       "touch: time must be a number from -1e+15 to 1e+15"},
      {R"({"verb":"touch","arguments":["down",1,2],"number":-1})",
       "touch: number must be a whole number of 32 bits"},
      {R"({"verb":"touch","arguments":["down",1e99,2]})", "touch: X is out of range: \"1e+99\""},
      {R"({"verb":"describe-all","arguments":["/tmp/x"]})",
       "describe-all: no file can be written from a page"},
      {R"({"verb":"screenshot","arguments":["x.png"]})", "screenshot: not from a page"},
      {R"({"verb":"swipe","arguments":[1,2,3,4]})", "swipe: not from a page"},
      {R"({"verb":"shown","arguments":[1.5]})", "shown: FRAME must be a whole number of 32 bits"},
      {R"({"verb":"shown","arguments":[4294967296]})", "shown: FRAME must be a whole number of 32 bits"},
      {R"({"verb":"pace","arguments":[1.01]})", "pace: FACTOR must be a number from 0 to 1"},
      {R"({"verb":"pace","arguments":["1"]})", "pace: FACTOR must be a number from 0 to 1"},
      {R"({"verb":"step","arguments":[1]})", "step: takes 0 arguments"},
      {R"({"verb":"set","arguments":["d",1,2]})", "set: KEY must be text"},
  };
  for (auto& [text, cause] : cases) {
    try {
      parseClientMessage(text);
      ADD_FAILURE() << text;
    } catch (const BadMessage& bad) {
      EXPECT_STREQ(bad.what(), cause) << text;
    }
  }
}

TEST(ListenAddress, IsAnIpAddressOrLocalhostWithAPort) {
  const std::pair<const char*, const char*> cases[] = {
      {"8080", "127.0.0.1:8080"},
      {"localhost:0", "127.0.0.1:0"},
      {"0.0.0.0:80", "0.0.0.0:80"},
      {"[::1]:1", "[::1]:1"},
      {"::1:1", nullptr},
      {"[::1]", nullptr},
      {"", nullptr},
      {"65536", nullptr},
      {"-1", nullptr},
      {"80 ", nullptr},
      {"example.com:80", nullptr},
      {":80", nullptr},
      {"127.0.0.1:", nullptr},
      {"127.0.0.1", nullptr},
      {"[127.0.0.1:80", nullptr},
  };
  for (auto [text, authority] : cases) {
    const auto address = parseListenAddress(text);
    ASSERT_EQ(address.has_value(), authority != nullptr) << text;
    if (address) {
      EXPECT_EQ(address->authority(), authority);
    }
  }
}

TEST(RequestGuard, LetsInItsOwnPageByAnAddressThatCannotBeSomebodyElses) {
  struct Case {
    const char *listensAt, *host;
    std::optional<std::string_view> origin;
    bool letIn;
  };
  const Case cases[] = {
      {"8080", "127.0.0.1:8080", std::nullopt, true},
      {"8080", "localhost:8080", "http://localhost:8080", true},
      {"8080", "[::1]:8080", std::nullopt, true},
      {"8080", "127.0.0.1:8080", "http://localhost:8080", false},
      {"8080", "127.0.0.1:8080", "https://127.0.0.1:8080", false},
      {"8080", "127.0.0.1:8080", "http://127.0.0.1:8081", false},
      {"8080", "127.0.0.1:8080", "null", false},
      {"8080", "127.0.0.1:8080", "", false},
      {"8080", "127.0.0.1:8081", std::nullopt, false},
      {"8080", "127.0.0.1", std::nullopt, false},
      {"8080", "192.168.1.2:8080", std::nullopt, false},
      {"8080", "rebound.example:8080", "http://rebound.example:8080", false},
      {"8080", "localhost.example:8080", std::nullopt, false},
      {"8080", "", std::nullopt, false},
      {"0.0.0.0:8080", "192.168.1.2:8080", "http://192.168.1.2:8080", true},
      {"0.0.0.0:8080", "rebound.example:8080", std::nullopt, false},
      {"127.0.0.1:80", "127.0.0.1", "http://127.0.0.1", true},
      {"127.0.0.1:80", "[::1]", std::nullopt, true},
  };
  for (auto& [listensAt, host, origin, letIn] : cases) {
    const RequestGuard guard(*parseListenAddress(listensAt), std::nullopt);
    EXPECT_EQ(guard.isForUs({host, origin, ""}), letIn)
        << listensAt << ' ' << host << ' ' << origin.value_or("-");
  }
}

TEST(RequestGuard, WantsTheWholeTokenAndNothingElse) {
  const RequestGuard guard({}, "correct-horse");
  for (const char* token :
       {"", "correct-hors", "correct-horse1", "Correct-horse", "correct-horsecorrect-horse"})
    EXPECT_FALSE(guard.knowsToken({"", std::nullopt, token})) << token;
  EXPECT_TRUE(guard.knowsToken({"", std::nullopt, "correct-horse"}));
  EXPECT_TRUE(RequestGuard({}, std::nullopt).knowsToken({}));
  EXPECT_TRUE(isToken(makeToken()) && makeToken() != makeToken());
  EXPECT_FALSE(isToken("short") || isToken("blank is none") || isToken("ampersand&x"));
}

TEST(RateLimit, AllowsABurstAndThenSoManyASecond) {
  RateLimit limit(10, 3, 100);
  const auto takenAt = [&](WallTime now) {
    int taken = 0;
    while (taken < 100 && limit.take(now)) ++taken;
    return taken;
  };
  EXPECT_EQ(takenAt(100), 3);
  EXPECT_EQ(takenAt(100.05), 0);
  EXPECT_EQ(takenAt(100.25), 2);
  EXPECT_EQ(takenAt(200), 3);
}

}  // namespace
}  // namespace host
