#include "platform/foundation/run_loop.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/foundation/darwin_notification_center.h"
#include "platform/foundation/delayed_perform.h"
#include "platform/foundation/ns_number.h"

namespace {

class RunLoopTest : public testing::Test {
 protected:
  /// Work that appends `mark` and the time at which it ran.
  std::function<void()> note(char mark) {
    return [this, mark] { order_ += mark + std::to_string(int(loop_.now())) + " "; };
  }

  RunLoop loop_;
  std::string order_;
};

TEST_F(RunLoopTest, RunsInTimeOrderAndTiesInOrderOfScheduling) {
  loop_.schedule(2, note('c'));
  loop_.schedule(1, note('a'));
  loop_.schedule(1, note('b'));
  loop_.schedule(9, note('z'));
  loop_.schedule(2, [this] {
    loop_.schedule(0, note('e'));  // Already past: due now, after what was due before it.
    loop_.schedule(3, note('f'));
  });
  loop_.schedule(2, note('d'));
  loop_.advanceTo(5);
  EXPECT_EQ(order_, "a1 b1 c2 d2 e2 f3 ");
  loop_.advanceTo(4);
  EXPECT_EQ(loop_.now(), 5);
  EXPECT_EQ(loop_.nextDue(), 9);
}

TEST_F(RunLoopTest, CancelledWorkNeverRunsAndOldTokensAreIgnored) {
  const auto victim = loop_.schedule(2, note('v'));
  const auto done = loop_.schedule(1, [&] { loop_.cancel(victim); });
  loop_.advanceTo(3);
  for (auto token : {victim, done}) loop_.cancel(token);
  EXPECT_EQ(order_, "");
  EXPECT_TRUE(loop_.idle());
}

class Listener : public NSObject {
  OBJC_CLASS(Listener, NSObject)
 public:
  static void hear(NSObject& self, const id& object) {
    auto* number = dynamic_cast<NSNumber*>(object.get());
    static_cast<Listener&>(self).heard += number ? std::to_string(number->intValue()) : "-";
  }
  std::string heard;
};

TEST(DelayedPerform, RunsUnlessCancelledWithAnEqualObject) {
  const auto number = [](int value) { return NSNumber::numberWithInt(value); };
  Listener::objcClass().addMethod("hear:", Listener::hear);
  auto listener = std::make_shared<Listener>();
  const auto other = std::make_shared<Listener>();
  for (const auto& target : {listener, other}) {
    for (const id& object : {id(number(1)), id(number(2)), id(), id(number(1))}) {
      performSelector(target, "hear:", object, 0.5);
    }
  }
  cancelPreviousPerformRequests(*listener, "hear:", number(1));
  cancelPreviousPerformRequests(*other, "hear:", nullptr);
  cancelPreviousPerformRequests(*other, "hear", number(2));
  RunLoop::main().advanceBy(0.5);
  EXPECT_EQ(listener->heard, "2-");
  EXPECT_EQ(other->heard, "121");

  // A pending perform keeps its target; one that has run or was cancelled does not.
  performSelector(listener, "hear:", nullptr, 1);
  const std::weak_ptr<Listener> watched = std::exchange(listener, nullptr);
  ASSERT_FALSE(watched.expired());
  cancelPreviousPerformRequests(*watched.lock(), "hear:", nullptr);
  EXPECT_TRUE(watched.expired());
}

TEST(DarwinNotificationCenter, FoldsIdenticalRegistrationsAndDeliversAtTheNextTurn) {
  auto& center = CFNotificationCenterGetDarwinNotifyCenter();
  const CFNotificationCallback countUp = [](void* observer, const std::string&) {
    ++*static_cast<int*>(observer);
  };
  static int counts[2];  // The registrations outlive the test.
  for (int observer : {0, 0, 1}) {
    center.addObserver(&counts[observer], countUp, "changed", CFNotificationSuspensionBehavior::Coalesce);
  }
  center.post("changed");
  EXPECT_EQ(counts[0] + counts[1], 0);
  RunLoop::main().advanceBy(0);
  EXPECT_EQ(counts[0], 1);
  EXPECT_EQ(counts[1], 1);
}

}  // namespace
