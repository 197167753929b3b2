#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/foundation/ns_data.h"

namespace host {

/// Why a connection is closed, with the protocol's numbers.
enum class CloseCode : std::uint16_t {
  GoingAway = 1001,        ///< The device has been switched off.
  PolicyViolation = 1008,  ///< The client broke the rules.
  ServiceRestart = 1012,   ///< Come back at once.
  TryAgainLater = 1013,    ///< Too many are here.
};

/// What goes before a picture's bytes: its number (32 bits), the number of the last touch that it can show
/// (32 bits) and the device's time (a double), lowest byte first.
using PictureHead = std::array<std::uint8_t, 16>;

/// One browser at the other end of a WebSocket. Owned by the server.
class WebClient {
 public:
  /// Queued, and sent as fast as the other end reads. One that lets too much text pile up is dropped.
  virtual void sendText(std::string text) = 0;
  /// One binary message; `picture` is shared by those that it goes to. How many are under way is for the
  /// sender to know.
  virtual void sendPicture(const PictureHead& head, std::shared_ptr<const NSData> picture) = 0;
  /// Nothing is sent to it or heard of it after this but, in the end, that it has left.
  virtual void close(CloseCode code, std::string_view reason) = 0;

 protected:
  ~WebClient() = default;
};

}  // namespace host
