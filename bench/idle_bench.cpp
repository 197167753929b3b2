// What a device costs that is served and left alone.

#include <memory>

#include "bench/figure.h"
#include "host/web/live_device.h"
#include "platform/uikit/display.h"
#include "tests/support/test_device.h"

namespace bench {
namespace {

using namespace vistrel::test;

/// A client that is content with everything.
class QuietClient final : public host::WebClient {
 public:
  void sendText(std::string) override {}
  void sendPicture(const host::PictureHead& head, std::shared_ptr<const NSData>) override {
    picture = 0;
    for (int byte = 3; byte >= 0; --byte) picture = picture << 8 | head[std::size_t(byte)];
  }
  void close(host::CloseCode, std::string_view) override {}

  unsigned picture = 0;  ///< The number of the last one.
};

class CountingDisplay final : public WindowDisplay {
 public:
  using WindowDisplay::WindowDisplay;
  CGImageRef picture() const override {
    ++drawn;
    return WindowDisplay::picture();
  }

  mutable int drawn = 0;
};

/// What happens in a second in which nobody does anything; the second after that in which the device came to
/// rest before its client.
struct IdleSecond {
  int frames = 0, wakeUps = 0;

  IdleSecond() {
    TestDevice device;
    auto display = std::make_shared<CountingDisplay>(currentDisplay().size(), currentDisplay().scale());
    setDisplay(display);
    host::PreferencePanes panes(device.springBoard().applications());
    host::LiveDevice live(device.springBoard(), panes, now_);
    QuietClient client;
    live.joined(client);
    live.turn(now_);
    pass(1, live, client);
    display->drawn = wakeUps = 0;
    pass(1, live, client);
    frames = display->drawn;
  }

 private:
  /// Wakes the device whenever it asks for it; the client answers every picture.
  void pass(double seconds, host::LiveDevice& live, QuietClient& client) {
    const host::WallTime end = now_ + seconds;
    for (;;) {
      if (client.picture != 0) {
        live.received(client, R"({"verb":"shown","arguments":[)" + std::to_string(client.picture) + "]}",
                      now_);
        client.picture = 0;
      }
      const auto next = live.nextTurn();
      if (!next || *next > end) break;
      now_ = std::max(now_, *next);
      live.turn(now_);
      ++wakeUps;
    }
    now_ = end;
    live.turn(now_);
  }

  host::WallTime now_ = 0;
};

}  // namespace

void addIdleFigures() {
  addCount("idle/frames", "drawn in an idle second", 0, [] { return IdleSecond().frames; });
  addCount("idle/wake-ups", "timers in an idle second, pings apart", 0, [] { return IdleSecond().wakeUps; });
}

}  // namespace bench
