#include "host/web/device_server.h"

#include <algorithm>
#include <boost/asio/post.hpp>
#include <chrono>

#include "host/interruption.h"
#include "host/web/machine_address.h"

namespace host {
namespace {

namespace asio = boost::asio;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<WallTime>;

// Seconds. With the device's time all but standing, its next turn may lie beyond what clocks can count.
constexpr WallTime longestSleep = 3600;

WallTime wallNow() { return Seconds(Clock::now().time_since_epoch()).count(); }

Clock::time_point clockTime(WallTime time) {
  return Clock::time_point(std::chrono::duration_cast<Clock::duration>(Seconds(time)));
}

WebServer serverFor(asio::io_context& loop, const ServeOptions& options,
                    std::optional<ListeningSocket> socket) {
  return socket ? WebServer(loop, *socket) : WebServer(loop, options.address);
}

}  // namespace

DeviceServer::DeviceServer(const ServeOptions& options, std::optional<ListeningSocket> socket)
    : server_(serverFor(loop_, options, socket)),
      token_(options.token),
      guard_(server_.address(), options.token),
      page_(options.page),
      signals_(loop_) {
  for (const int each : interruptingSignals()) signals_.add(each);
}

std::string DeviceServer::pageAddress() const {
  ListenAddress address = server_.address();
  if (address.isEveryAddress()) address.host = machineAddress().value_or(loopbackHost);
  return host::pageAddress(address, token_);
}

DeviceServer::End DeviceServer::run(SpringBoard& springBoard, PreferencePanes& panes) {
  LiveDevice device(springBoard, panes, wallNow());
  device_ = &device;
  signals_.async_wait([this](boost::system::error_code error, int) {
    if (!error) stop(End::SwitchedOff, CloseCode::GoingAway, "the device has been switched off");
  });
  server_.serve(guard_, page_, *this);
  turnSoon();
  loop_.run();
  device_ = nullptr;
  return interrupted() ? End::SwitchedOff : end_;
}

void DeviceServer::stop(End end, CloseCode code, std::string_view reason) {
  if (std::exchange(stopping_, true)) return;
  end_ = end;
  timer_.cancel();
  signals_.cancel();
  signals_.clear();
  catchInterruptions();  // One that comes now is remembered: a device that is respringing stays off then.
  server_.stop(code, reason);
}

// What clients do; the device takes its turn when all that has come in by now has been heard.

void DeviceServer::joined(WebClient& client) {
  device_->joined(client);
  turnSoon();
}

void DeviceServer::received(WebClient& client, std::string_view text) {
  device_->received(client, text, wallNow());
  turnSoon();
}

void DeviceServer::left(WebClient& client) {
  device_->left(client, wallNow());
  turnSoon();
}

std::optional<WebResource> DeviceServer::icon(std::string_view name) {
  return device_->icon(std::string(name));
}

// Time.

void DeviceServer::turnSoon() {
  if (std::exchange(turnIsQueued_, true)) return;
  asio::post(loop_, [this] {
    turnIsQueued_ = false;
    turn();
  });
}

void DeviceServer::turn() {
  if (stopping_) return;
  device_->turn(wallNow());
  if (device_->respringWanted()) return stop(End::Respring, CloseCode::ServiceRestart, "respringing");
  const auto next = device_->nextTurn();
  if (!next) return void(timer_.cancel());
  timer_.expires_at(clockTime(std::min(*next, wallNow() + longestSleep)));
  timer_.async_wait([this](boost::system::error_code cancelled) {
    if (!cancelled) turn();
  });
}

}  // namespace host
