#include "host/web/live_device.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <bit>

#include "platform/coregraphics/image_codec.h"
#include "platform/uikit/touch_dispatcher.h"
#include "platform/uikit/ui_window.h"
#include "tests/support/test_device.h"

namespace host {
namespace {

/// A client that writes down what it gets.
class FakeClient final : public WebClient {
 public:
  struct Picture {
    std::uint32_t number, touch;
    double time;
    std::shared_ptr<const NSData> jpeg;
  };

  void sendText(std::string text) override { texts.push_back(Json::parse(text)); }
  void sendPicture(const PictureHead& head, std::shared_ptr<const NSData> jpeg) override {
    const auto read = [&](std::size_t at, int bytes) {
      std::uint64_t value = 0;
      for (int i = bytes; i-- > 0;) value = value << 8 | head[at + std::size_t(i)];
      return value;
    };
    pictures.push_back({std::uint32_t(read(0, 4)), std::uint32_t(read(4, 4)),
                        std::bit_cast<double>(read(8, 8)), std::move(jpeg)});
  }
  void close(CloseCode code, std::string_view reason) override {
    closed = fmt::format("{} {}", int(code), reason);
  }

  /// The last text of that name; null where there is none.
  Json last(const std::string& name) const {
    for (auto text = texts.rbegin(); text != texts.rend(); ++text)
      if (text->contains(name)) return (*text)[name];
    return nullptr;
  }

  std::vector<Json> texts;
  std::vector<Picture> pictures;
  std::string closed;
};

class LiveDeviceTest : public testing::Test {
 protected:
  FakeClient& join() {
    FakeClient& client = clients_.emplace_back();
    live_.joined(client);
    live_.turn(now_);
    return client;
  }
  void send(FakeClient& client, const std::string& verb, const std::string& arguments = "",
            const std::string& more = "") {
    live_.received(client, fmt::format(R"({{"verb":"{}","arguments":[{}]{}}})", verb, arguments, more), now_);
    live_.turn(now_);
  }
  void touch(FakeClient& client, const std::string& arguments, int number) {
    send(client, "touch", arguments, fmt::format(R"(,"number":{})", number));
  }
  void acknowledge(FakeClient& client) {
    send(client, "shown", std::to_string(client.pictures.back().number));
  }
  /// Lets real time pass, waking the device whenever it asks for it; `ready` clients answer every picture.
  void pass(double seconds, std::vector<FakeClient*> ready = {}) {
    const WallTime end = now_ + seconds;
    for (;;) {
      for (FakeClient* client : ready) acknowledge(*client);
      const auto next = live_.nextTurn();
      if (!next || *next > end) break;
      now_ = std::max(now_, *next);
      live_.turn(now_);
      ++turns_;
    }
    now_ = end;
    live_.turn(now_);
  }
  static CFTimeInterval deviceTime() { return RunLoop::main().now(); }

  vistrel::test::TestDevice device_;
  WallTime now_ = 1000;
  PreferencePanes panes_{device_.springBoard().applications()};
  LiveDevice live_{device_.springBoard(), panes_, now_};
  std::list<FakeClient> clients_;
  int turns_ = 0;
};

TEST_F(LiveDeviceTest, ShowsEveryChangeOfTheScreenOnceAndNothingWhileItRests) {
  FakeClient& client = join();
  EXPECT_EQ(client.last("state")["apps"].size(), vistrel::test::testBundles.size());
  EXPECT_EQ(client.last("settings").type(), Json::value_t::array);
  ASSERT_EQ(client.pictures.size(), 1u);
  const CGImageRef picture = decodeImage(*client.pictures[0].jpeg);
  EXPECT_EQ(picture->width(), 640);
  EXPECT_EQ(picture->height(), 960);

  pass(1, {&client});
  turns_ = 0;
  const std::size_t atRest = client.pictures.size();
  pass(10, {&client});
  EXPECT_EQ(client.pictures.size(), atRest);
  EXPECT_EQ(turns_, 0);

  send(client, "launch", "\"com.example.one\"");
  pass(2, {&client});
  EXPECT_EQ(client.last("state")["frontmost"], "com.example.one");
  const auto shown = client.pictures.size() - atRest;
  EXPECT_GT(shown, 10u);  // An animation of a fraction of a second, at 60 a second.
  EXPECT_LT(shown, 70u);
  for (std::size_t i = 1; i < client.pictures.size(); ++i)
    EXPECT_GT(client.pictures[i].time, client.pictures[i - 1].time);
}

TEST_F(LiveDeviceTest, AClientThatDoesNotAnswerGetsNoFurtherPictureAndDelaysNobody) {
  FakeClient &silent = join(), &quick = join();
  send(quick, "activator", "\"receive\"");
  pass(1, {&quick});
  EXPECT_EQ(silent.pictures.size(), 1u);
  EXPECT_GT(quick.pictures.size(), 10u);
  send(silent, "shown", "77");  // Not the one under way.
  EXPECT_EQ(silent.pictures.size(), 1u);
  acknowledge(silent);
  ASSERT_EQ(silent.pictures.size(), 2u);
  EXPECT_EQ(silent.pictures.back().jpeg, quick.pictures.back().jpeg);
}

TEST_F(LiveDeviceTest, APictureNamesTheLastTouchThatItCanShow) {
  FakeClient& client = join();
  pass(1, {&client});
  touch(client, R"("down", 318, 240)", 41);
  touch(client, R"("move", 290, 240)", 42);
  pass(0);  // The photograph and the bands are one picture at first; they part as time passes.
  EXPECT_EQ(client.pictures.back().touch, 42u);  // At once: the screen had been at rest.
  touch(client, R"("move", 289, 240)", 43);
  EXPECT_EQ(client.pictures.back().touch, 42u);  // The last picture is under way.
  pass(0.1, {&client});
  EXPECT_EQ(client.pictures.back().touch, 43u);
}

TEST_F(LiveDeviceTest, ATouchHappensWhenItsStampSays) {
  class StampedWindow : public UIWindow {
   public:
    StampedWindow() : UIWindow(CGRectMake(0, 0, 320, 480)) {
      setWindowLevel(20000);
      setHidden(false);
    }
    void touchesBegan(const UITouchSet& touches, UIEvent*) override { note(touches); }
    void touchesMoved(const UITouchSet& touches, UIEvent*) override { note(touches); }
    void note(const UITouchSet& touches) { times.push_back(anyObject(touches)->timestamp()); }
    std::vector<double> times;
  };
  auto window = std::make_shared<StampedWindow>();
  FakeClient& client = join();
  const CFTimeInterval start = deviceTime();
  // Stamps in milliseconds; the second message took 30 ms longer on its way than the others.
  const std::pair<double, double> stampsAndArrivals[] = {{5000, 0}, {5016, 0.046}, {5064, 0.064}};
  for (auto [stamp, arrival] : stampsAndArrivals) {
    now_ = 1000 + arrival;
    const char* action = window->times.empty() ? R"("down", 9, 9)" : R"("move", 9, 9)";
    send(client, "touch", action, fmt::format(R"(,"time":{})", stamp));
  }
  ASSERT_EQ(window->times.size(), 3u);
  const double expected[] = {0, 0.016, 0.064};
  for (int i = 0; i < 3; ++i) EXPECT_NEAR(window->times[std::size_t(i)] - start, expected[i], 1e-6);
}

TEST_F(LiveDeviceTest, FingersAreTheirClientsAndGoWithIt) {
  FakeClient &one = join(), &other = join();
  touch(one, R"("down", 100, 100, "--finger", 3)", 1);
  touch(other, R"("down", 100, 200, "--finger", 3)", 1);
  touch(one, R"("down", 100, 300, "--finger", 3)", 2);  // It is down already.
  EXPECT_EQ(one.last("problem"), "down while the finger is down already");
  EXPECT_EQ(other.last("problem"), nullptr);
  live_.left(one, now_);
  EXPECT_FALSE(TouchDispatcher::shared().isDown(3));
  touch(other, R"("up", 100, 200, "--finger", 3)", 2);
  EXPECT_EQ(other.last("problem"), nullptr);
  EXPECT_EQ(one.closed + other.closed, "");
}

TEST_F(LiveDeviceTest, TheDevicesTimeRunsAsFastAsItIsTold) {
  FakeClient& client = join();
  struct Case {
    const char* verb;
    const char* factor;
    double real, onDevice;
  };
  for (auto [verb, factor, real, onDevice] :
       {Case{"pace", "0.5", 2, 1}, Case{"pace", "0.1", 2, 0.2}, Case{"step", "", 2, 0.2},  // Runs: no step.
        Case{"pace", "0", 2, 0}, Case{"step", "", 2, 1.0 / 60}, Case{"pace", "1", 2, 2}}) {
    const CFTimeInterval before = deviceTime();
    send(client, verb, factor);
    pass(real);
    EXPECT_NEAR(deviceTime() - before, onDevice, 1e-9) << verb << factor;
  }
  EXPECT_EQ(client.last("state")["pace"], 1);
}

TEST_F(LiveDeviceTest, WhatCannotBeDoneIsAnsweredAndWhatIsNoMessageClosesItsClient) {
  struct Case {
    const char *verb, *arguments, *problem, *closed;
  };
  const Case cases[] = {
      {"terminate", R"("com.example.one")", "com.example.one: not running", ""},
      {"touch", R"("down", 321, 1)", "(321, 1) is not on the screen of 320 x 480 points", ""},
      {"touch", R"("move", 1, 1)", "move before down", ""},
      {"launch", R"("a\nb")", "a\\x0ab: no such application", ""},
      {"keyboard", R"("show")", "keyboard: no application is in front", ""},
      {"wait", "1", "", "1008 wait: not from a page"},
      {"set", R"("nobody", "key", 1)", "", "1008 "},
  };
  for (auto& [verb, arguments, problem, closed] : cases) {
    FakeClient& client = join();
    send(client, verb, arguments);
    EXPECT_EQ(client.last("problem").is_null() ? "" : client.last("problem"), problem) << verb;
    EXPECT_TRUE(client.closed.starts_with(closed) && client.closed.empty() == (*closed == 0))
        << client.closed;
  }
}

TEST_F(LiveDeviceTest, QuestionsAreAnsweredToWhoAsks) {
  FakeClient &asking = join(), &other = join();
  send(asking, "inspect", "319, 240");
  const Json views = asking.last("inspection")["views"];
  ASSERT_FALSE(views.empty());
  const auto window =
      std::ranges::find_if(views, [](const Json& view) { return view["class"] == "CardScroller"; });
  ASSERT_NE(window, views.end());
  EXPECT_EQ((*window)["corners"][0], Json::parse("[305, 0]"));
  EXPECT_EQ((*window)["frame"], Json::parse("[305, 0, 320, 480]"));
  send(asking, "describe-all");
  EXPECT_TRUE(asking.last("description").contains("windows"));
  EXPECT_TRUE(other.last("inspection").is_null() && other.last("description").is_null());
  EXPECT_FALSE(live_.respringWanted());
  send(asking, "respring");
  EXPECT_TRUE(live_.respringWanted());
}

TEST_F(LiveDeviceTest, EverybodyIsToldOfChangedSettingsWhoeverChangedThem) {
  FakeClient &one = join(), &other = join();
  other.texts.clear();
  device_.changePreferences({{"swipeDirection", "Left"}});  // By hand, that is.
  pass(0.1);
  EXPECT_EQ(other.last("settings").type(), Json::value_t::array);
  other.texts.clear();
  one.texts.clear();
  send(one, "notify-post", "\"com.example.nothing\"");
  EXPECT_TRUE(one.last("settings").is_null() && other.last("settings").is_null());
}

}  // namespace
}  // namespace host
