#pragma once

#include <cstdint>

#include "host/web/client_clock.h"
#include "host/web/client_message.h"
#include "host/web/live_screen.h"
#include "host/web/web_client.h"

namespace host {

/// One client of the device: its fingers, and which picture it has come to.
class LiveClient {
 public:
  /// `place` tells its fingers from those of others that are there at the same time.
  LiveClient(WebClient& connection, int place) : connection_(connection), place_(place) {}

  WebClient& connection() const { return connection_; }
  int place() const { return place_; }

  /// When, by our clock, the touch happened.
  WallTime timeOf(const TouchMessage& message, WallTime now);
  /// Throws Failure or IncoherentTouch.
  void touch(const TouchMessage& message, CFTimeInterval time);
  /// Takes its fingers off the glass.
  void leave(CFTimeInterval time);

  /// Whether the picture that was sent last has arrived.
  bool ready() const { return !underWay_; }
  /// It has. One that is not under way is no news.
  void arrived(std::uint32_t picture);
  /// The screen is about to be drawn: what was touched so far can be seen in it.
  void noteDrawing() { touchDrawn_ = lastTouch_; }
  /// Sends the screen's picture, where it is a new one and the last has arrived.
  void sendPictureOf(LiveScreen& screen);

 private:
  int firstFinger() const { return place_ * mostFingers; }

  WebClient& connection_;  // The server's.
  int place_;
  ClientClock clock_;
  CFTimeInterval lastTouchTime_ = 0;
  std::uint32_t lastTouch_ = 0;  // Numbers of the client's own.
  std::uint32_t touchDrawn_ = 0;
  std::uint32_t sent_ = 0;  // The screen's version.
  bool underWay_ = false;
};

}  // namespace host
