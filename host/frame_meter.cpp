#include "host/frame_meter.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

#include "platform/uikit/display.h"

namespace host {
namespace {

double millisecondsToDraw() {
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  const CGImageRef picture = UIGetScreenImage();  // Let go of after the clock has been read.
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// The smallest time that `percent` of them do not exceed. `times` are in order.
double percentile(const std::vector<double>& times, std::size_t percent) {
  constexpr std::size_t whole = 100;
  const std::size_t rank = (times.size() * percent + whole - 1) / whole;  // From 1; rounded up.
  return times[rank - 1];
}

}  // namespace

std::string reportOf(const FrameStatistics& statistics) {
  std::vector<double> times = statistics.renderTimes;
  std::ranges::sort(times);
  std::string report =
      fmt::format("frames drawn: {}\nframes skipped: {}\n", times.size(), statistics.skipped);
  if (!times.empty())
    report +=
        fmt::format("render time: {:.2f} ms (50 %), {:.2f} ms (90 %), {:.2f} ms (99 %), {:.2f} ms (max)\n",
                    percentile(times, 50), percentile(times, 90), percentile(times, 99), times.back());
  return report;
}

void FrameMeter::takeFrame() {
  ++frame_;
  if (!lastDrawing_.isOutdated()) {
    ++statistics_.skipped;
    return;
  }
  lastDrawing_.note();
  statistics_.renderTimes.push_back(millisecondsToDraw());
}

}  // namespace host
