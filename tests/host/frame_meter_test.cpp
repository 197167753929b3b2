#include "host/frame_meter.h"

#include <gtest/gtest.h>

#include <sstream>

#include "host/script_runner.h"
#include "platform/uikit/ui_window.h"
#include "tests/support/test_device.h"

namespace host {
namespace {

class FrameMeterTest : public testing::Test {
 protected:
  /// From a full second on, so that frames and what a script waits for meet exactly.
  FrameStatistics play(const std::string& script) {
    RunLoop::main().advanceTo(seconds_ += 100);
    FrameMeter meter(seconds_);
    std::istringstream lines(script);
    runScript(lines, "demo", device_.springBoard(), output_, output_, &meter);
    return meter.statistics();
  }

  vistrel::test::TestDevice device_;
  std::ostringstream output_;
  CFTimeInterval seconds_ = 0;
};

TEST_F(FrameMeterTest, SixtyFramesASecondAreDrawnWhereTheScreenChanges) {
  struct Case {
    const char* script;
    std::size_t frames, fewestDrawn, mostDrawn;
  };
  const Case cases[] = {
      {"", 0, 0, 0},
      {"fly", 0, 0, 0},
      {"list-apps\nlist-apps", 1, 1, 1},
      {"wait 1", 61, 1, 1},
      {"wait 1\nfly", 61, 1, 1},
      {"wait 0.75\nwait 0.25\nlist-apps", 61, 1, 1},
      {"wait 0.015\nrecord-video /dev/null\nwait 0.985", 61, 1, 1},
      {"swipe 317 240 17 240 --delta 5 --duration 0.5\nwait 2", 151, 31, 60},
  };
  for (const auto& [script, frames, fewestDrawn, mostDrawn] : cases) {
    const auto [times, skipped] = play(script);
    EXPECT_EQ(times.size() + std::size_t(skipped), frames) << script;
    EXPECT_GE(times.size(), fewestDrawn) << script;
    EXPECT_LE(times.size(), mostDrawn) << script;
  }
}

TEST_F(FrameMeterTest, AnAnimationIsDrawnToItsEnd) {
  UIWindow window({{0, 0}, {10, 10}});
  window.setHidden(false);
  RunLoop::main().schedule(100.5, [&] { UIView::animateWithDuration(0.25, [&] { window.setAlpha(0); }); });
  const auto [times, skipped] = play("wait 1");
  EXPECT_EQ(times.size(), 1u + 16);  // Those at 0, at 0.5 and at 15 more.
  EXPECT_EQ(skipped, 61 - 17);
}

TEST(FrameStatistics, AreReportedWithThePercentilesOfWhatWasDrawn) {
  FrameStatistics statistics;
  statistics.skipped = 7;
  EXPECT_EQ(reportOf(statistics), "frames drawn: 0\nframes skipped: 7\n");
  statistics.renderTimes = {0.126};
  EXPECT_EQ(reportOf(statistics),
            "frames drawn: 1\nframes skipped: 7\n"
            "render time: 0.13 ms (50 %), 0.13 ms (90 %), 0.13 ms (99 %), 0.13 ms (max)\n");
  statistics.renderTimes.clear();
  for (int time = 201; time > 0; --time) statistics.renderTimes.push_back(time);
  EXPECT_EQ(reportOf(statistics),
            "frames drawn: 201\nframes skipped: 7\n"
            "render time: 101.00 ms (50 %), 181.00 ms (90 %), 199.00 ms (99 %), 201.00 ms (max)\n");
}

}  // namespace
}  // namespace host
