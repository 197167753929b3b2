// Messages of a page to a running device, one a line, in virtual time: what is no message closes the
// connection, everything else is done or answered, and all that goes down is JSON.

#include <sstream>

#include "fuzz/promise.h"
#include "host/settings/preference_panes.h"
#include "host/web/live_device.h"
#include "tests/support/test_device.h"

namespace {

using vistrel::test::TestDevice;

constexpr double betweenMessages = 0.05, longEnough = 3;  // Seconds.

class Client final : public host::WebClient {
 public:
  void sendText(std::string text) override {
    fuzz::require(host::Json::parse(text, nullptr, false).is_object(), "text that goes down is JSON");
  }
  void sendPicture(const host::PictureHead&, std::shared_ptr<const NSData> picture) override {
    fuzz::require(!closed && !picture->empty(), "a picture is one");
  }
  void close(host::CloseCode, std::string_view) override { closed = true; }

  bool closed = false;
};

/// One device for all inputs.
TestDevice& device() {
  static TestDevice device({.model = "iphone-3gs"});
  return device;
}

/// What an input leaves behind, and the next one is not to find.
void forget() {
  host::SpringBoard& springBoard = device().springBoard();
  springBoard.unlock();
  device().settle();
  springBoard.rotate(UIDeviceOrientation::Portrait);
  device().home();
  for (const host::AppListing& app : springBoard.applications()) {
    if (app.running) springBoard.terminate(app.bundle);
    device().settle();
  }
  device().deletePreferences();
  device().pump(longEnough);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  TestDevice& testDevice = device();
  host::WallTime now = 0;
  {
    host::PreferencePanes panes(testDevice.springBoard().applications());
    host::LiveDevice live(testDevice.springBoard(), panes, now);
    Client client;
    live.joined(client);
    live.turn(now);
    std::istringstream messages(std::string(bytes, bytes + size));
    for (std::string message; !client.closed && std::getline(messages, message);) {
      live.received(client, message, now);
      live.turn(now);
      now += betweenMessages;
    }
    live.left(client, now);
    live.turn(now + longEnough);
  }
  forget();
  return 0;
}
