#include "host/script_runner.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>

#include "host/bounded_line.h"
#include "host/event_log.h"
#include "host/interruption.h"
#include "host/json_text.h"
#include "platform/foundation/darwin_notification_center.h"
#include "platform/foundation/trace.h"
#include "platform/uikit/ui_window.h"
#include "tests/support/test_device.h"

namespace host {
namespace {

/// A window over everything that writes down the touches it gets: phase, place, seconds since the test began.
class FingerWindow : public UIWindow {
 public:
  explicit FingerWindow(CGRect frame) : UIWindow(frame) {
    setWindowLevel(10000);
    setHidden(false);
  }
  void touchesBegan(const UITouchSet& touches, UIEvent*) override { note("down", touches); }
  void touchesMoved(const UITouchSet& touches, UIEvent*) override { note("move", touches); }
  void touchesEnded(const UITouchSet& touches, UIEvent*) override { note("up", touches); }
  void touchesCancelled(const UITouchSet& touches, UIEvent*) override { note("cancel", touches); }

  std::string takeNotes() { return std::exchange(notes_, ""); }

 private:
  void note(const char* phase, const UITouchSet& touches) {
    const UITouch& touch = *anyObject(touches);
    const CGPoint point = touch.locationInView(nullptr);
    notes_ += fmt::format("{} {:.4g},{:.4g} {:.3g}; ", phase, point.x, point.y, touch.timestamp() - start_);
  }
  CFTimeInterval start_ = RunLoop::main().now();
  std::string notes_;
};

class ScriptRunnerTest : public testing::Test {
 protected:
  int play(const std::string& script) {
    std::istringstream lines(script);
    output_.str("");
    errors_.str("");
    return runScript(lines, "demo", device_.springBoard(), output_, errors_);
  }

  static vistrel::test::DeviceSetup withoutLibrary() {
    vistrel::test::DeviceSetup setup;
    setup.loadsLibrary = false;
    return setup;
  }
  vistrel::test::TestDevice device_{withoutLibrary()};
  std::ostringstream output_, errors_;
  std::string file_ = testing::TempDir() + "script_runner_test_file";
};

TEST_F(ScriptRunnerTest, FingersMoveAsTheScriptSays) {
  const std::pair<const char*, const char*> cases[] = {
      {"tap 320 20", "down 320,20 0; up 320,20 0; "},
      {"tap 10 20 --duration 0.5", "down 10,20 0; up 10,20 0.5; "},
      {"swipe 100 0 75 0", "down 100,0 0; move 90,0 0.1; move 80,0 0.2; move 75,0 0.3; up 75,0 0.3; "},
      {"swipe 0 0 30 40 --delta 25 --duration 1", "down 0,0 0; move 15,20 0.5; move 30,40 1; up 30,40 1; "},
      {"swipe 5 5 5 5", "down 5,5 0; move 5,5 0.3; up 5,5 0.3; "},
      {"swipe 310 1 350 1 --delta 20 --duration 0", "down 310,1 0; move 330,1 0; move 350,1 0; up 350,1 0; "},
      {"touch down 1 2\nwait 0.25\ntouch move 400 2\ntouch up 400 3",
       "down 1,2 0; move 400,2 0.25; up 400,3 0.25; "},
      {"touch down 1 2\nwait 0.5", "down 1,2 0; cancel 1,2 0.5; "},
      {"touch down 1 2 --finger 4\ntouch cancel 9 9 --finger 4", "down 1,2 0; cancel 1,2 0; "},
  };
  for (auto& [script, touches] : cases) {
    auto window = std::make_shared<FingerWindow>(CGRectMake(0, 0, 321, 480));
    EXPECT_EQ(play(script), 0) << errors_.str();
    EXPECT_EQ(window->takeNotes(), touches) << script;
  }
}

TEST_F(ScriptRunnerTest, StopsAtTheFirstLineThatIsWrongOrFails) {
  struct Case {
    const char* script;
    int exitCode;
    const char* error;  // How the message begins.
  };
  const std::string endless(70'000, 'x');
  const Case cases[] = {
      {"foo", 2, "demo:1: unknown verb \"foo\"\n"},
      {endless.c_str(), 2, "demo:1: longer than 65536 bytes\n"},
      {"# comment\n\nwait x\nlist-apps", 2, "demo:3: wait: seconds is not a number: \"x\"\n"},
      {"touch move 1 1\nlist-apps", 1, "demo:1: "},
      {"touch up 1 1", 1, "demo:1: "},
      {"touch down 1 1\nswipe 2 2 3 3", 1, "demo:2: "},
      {"tap 320.5 1", 1, "demo:1: (320.5, 1) is not on the screen of 320 x 480 points\n"},
      {"launch com.example.nobody", 1, "demo:1: "},
      {"terminate com.example.one", 1, "demo:1: "},
      {"screenshot /no/such/a.png", 1, "demo:1: /no/such/a.png: No such file or directory\n"},
      {"describe-all /dev/full", 1, "demo:1: /dev/full: No space left on device\n"},
      {"record-stop", 1, "demo:1: no recording is under way\n"},
      {"record-video /dev/null\nrecord-video /dev/null", 1, "demo:2: a recording is under way already\n"},
      {"record-video /dev/full\nwait 0.1", 1, "demo:2: /dev/full: No space left on device\n"},
  };
  for (auto& [script, exitCode, error] : cases) {
    EXPECT_EQ(play(script), exitCode) << script;
    const std::string said = errors_.str();
    EXPECT_TRUE(said.starts_with(error)) << script << ": " << said;
    EXPECT_EQ(std::ranges::count(said, '\n'), 1) << said;
    EXPECT_EQ(output_.str(), "") << script;
    play("");  // Lifts a finger that the failure left down.
  }
}

TEST(BoundedLine, TakesOneByteMoreThanALineMayHave) {
  std::istringstream lines(std::string("\n123\n4\0\n1234567\n8", 17));
  std::string line;
  for (const auto& expected : {std::string(), std::string("123"), std::string("4\0", 2), std::string("1234"),
                               std::string("567"), std::string("8")}) {
    EXPECT_TRUE(takeBoundedLine(lines, line, 3));
    EXPECT_EQ(line, expected);
  }
  EXPECT_FALSE(takeBoundedLine(lines, line, 3));
}

TEST_F(ScriptRunnerTest, ARecordingIsKeptWhenAScriptFails) {
  EXPECT_EQ(play("record-video " + file_ + "\nwait 0.1\nfoo"), 2);
  std::ifstream stream(file_, std::ios::binary);
  std::string start(4, ' ');
  stream.read(start.data(), std::ssize(start));
  EXPECT_EQ(start, "RIFF");
}

TEST_F(ScriptRunnerTest, AnInterruptionEndsARecordedWaitAndKeepsTheRecording) {
  const auto playInterrupted = [this] {
    catchInterruptions();
    RunLoop::main().scheduleAfter(0.1, [] { std::raise(SIGHUP); });
    const int code = play("record-video " + file_ + "\nwait 60");
    std::cerr << errors_.str() << (RunLoop::main().now() < 30 && std::filesystem::file_size(file_) > 0);
    std::_Exit(code);
  };
  EXPECT_EXIT(playInterrupted(), testing::ExitedWithCode(1), "^demo:2: interrupted\n1");
}

TEST_F(ScriptRunnerTest, TimePassesOnlyAsAsked) {
  RunLoop& loop = RunLoop::main();
  auto elapsed = [&, start = loop.now()]() mutable { return loop.now() - std::exchange(start, loop.now()); };

  loop.scheduleAfter(0.5, [] {});
  EXPECT_EQ(play(""), 0);
  EXPECT_NEAR(elapsed(), 0.5, 1e-9) << "Draining ends with the last piece of work";

  int ticks = 0;
  RunLoop::Token next{};
  std::function<void()> tick = [&] { ++ticks, next = loop.scheduleAfter(0.75, tick); };
  tick();
  play("");
  EXPECT_NEAR(elapsed(), 2, 1e-9) << "Draining ends after two seconds";
  EXPECT_EQ(ticks, 3);
  loop.cancel(next);

  // A notification reaches its observers within the line that posts it.
  static CFTimeInterval deliveredAt = -1;  // The registration outlives the test.
  CFNotificationCenterAddObserver(
      CFNotificationCenterGetDarwinNotifyCenter(), &deliveredAt,
      [](void* at, const std::string&) { *static_cast<CFTimeInterval*>(at) = RunLoop::main().now(); },
      "changed", CFNotificationSuspensionBehavior::DeliverImmediately);
  const CFTimeInterval posting = loop.now();
  play("notify-post changed\nwait 1");
  EXPECT_EQ(deliveredAt, posting);
}

TEST_F(ScriptRunnerTest, TheLogHasALineForEachEvent) {
  {
    EventLog log(file_);
    RunLoop::main().advanceTo(100.3);
    trace("window-level", {{"level", 9001.0}, {"class", std::string("a\"b")}});
    EXPECT_EQ(play("activator receive"), 0);
    log.checkWritten();
  }
  trace("unseen", {});
  std::ifstream stream(file_);
  std::string first, second, third;
  std::getline(stream, first);
  std::getline(stream, second);
  EXPECT_EQ(first, R"({"time":100.3,"event":"window-level","level":9001,"class":"a\"b"})");
  EXPECT_EQ(second, R"({"time":100.3,"event":"activator-event","kind":"receive","handled":false})");
  EXPECT_FALSE(std::getline(stream, third)) << third;

  EventLog full("/dev/full");
  trace("lost", {});
  EXPECT_ANY_THROW(full.checkWritten());
}

}  // namespace
}  // namespace host
