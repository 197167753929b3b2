#include "host/web/live_client.h"

#include <algorithm>
#include <bit>

#include "host/touch_commands.h"

namespace host {
namespace {

constexpr std::size_t pictureOffset = 0;
constexpr std::size_t touchOffset = pictureOffset + sizeof(std::uint32_t);
constexpr std::size_t timeOffset = touchOffset + sizeof(std::uint32_t);

/// Writes `value` from byte `at` on, its lowest byte first.
template <class Value>
void put(PictureHead& head, std::size_t at, Value value) {
  for (std::size_t i = 0; i < sizeof value; ++i) head[at + i] = std::uint8_t(value >> (8 * i));
}

PictureHead headOf(std::uint32_t picture, std::uint32_t touch, CFTimeInterval time) {
  PictureHead head{};
  put(head, pictureOffset, picture);
  put(head, touchOffset, touch);
  put(head, timeOffset, std::bit_cast<std::uint64_t>(time));
  return head;
}

}  // namespace

WallTime LiveClient::timeOf(const TouchMessage& message, WallTime now) {
  return message.stamp ? clock_.timeOf(*message.stamp, now) : now;
}

void LiveClient::touch(const TouchMessage& message, CFTimeInterval time) {
  // Neither before the touch that came before it nor after now.
  lastTouchTime_ = std::clamp(time, lastTouchTime_, RunLoop::main().now());
  performTouch(message.touch, firstFinger(), lastTouchTime_);
  lastTouch_ = message.number;
}

void LiveClient::leave(CFTimeInterval time) { cancelTouches(firstFinger(), time); }

void LiveClient::arrived(std::uint32_t picture) {
  if (picture == sent_) underWay_ = false;
}

void LiveClient::sendPictureOf(LiveScreen& screen) {
  if (underWay_ || screen.version() == sent_) return;
  sent_ = screen.version();
  underWay_ = true;
  connection_.sendPicture(headOf(sent_, touchDrawn_, screen.timeDrawn()), screen.jpeg());
}

}  // namespace host
