#pragma once

#include <functional>
#include <list>
#include <map>
#include <optional>
#include <string>

#include "host/settings/preference_panes.h"
#include "host/spring_board.h"
#include "host/web/live_client.h"
#include "host/web/live_screen.h"
#include "host/web/pace.h"
#include "host/web/web_application.h"

namespace host {

/// The device in real time, in the hands of its clients: their messages in, pictures and state out.
///
/// It reads no clock: every call says what time it is, and `turn` is due by `nextTurn` at the latest. It is
/// told of a client from `joined` to `left`, which always comes, and of none other. All on one thread.
class LiveDevice {
 public:
  /// The device's time goes on from `now` at the real speed. The others outlive this object.
  LiveDevice(SpringBoard& springBoard, PreferencePanes& panes, WallTime now);
  ~LiveDevice();
  LiveDevice(const LiveDevice&) = delete;
  LiveDevice& operator=(const LiveDevice&) = delete;

  void joined(WebClient& connection);
  /// A message that is none closes its client with the reason; one that cannot be carried out is answered so.
  void received(WebClient& connection, std::string_view text, WallTime now);
  void left(WebClient& connection, WallTime now);

  /// Lets the device catch up with the time and sends what is new. To be called after each of the above, too.
  void turn(WallTime now);
  /// Nothing: not before a client does something.
  std::optional<WallTime> nextTurn() const;

  /// A client has asked for it; it is for the process to do.
  bool respringWanted() const { return respringWanted_; }
  /// An application's icon as PNG; nothing for an unknown bundle.
  std::optional<WebResource> icon(const std::string& bundle);

 private:
  class Performer;

  LiveClient& clientOf(const WebClient& connection);
  int freePlace() const;
  void catchUp(WallTime now);
  /// A fault of an add-on library, in work that nobody asked for just now, is everybody's to know.
  void attempt(const std::function<void()>& work);
  void sendPictures(WallTime now);
  void tellChanges();
  std::string stateText() const;
  bool anyoneReady() const;

  SpringBoard& springBoard_;
  PreferencePanes& panes_;
  Pace pace_;
  std::list<LiveClient> clients_;  // A list: they stay where they are.
  LiveScreen screen_;
  std::map<std::string, WebResource> icons_;  // By bundle, once asked for.
  std::string toldState_;                     // As everybody knows it.
  bool settingsChanged_ = false;              // Since they were last told.
  CFTimeInterval nextClockChange_ = 0;
  bool respringWanted_ = false;
};

}  // namespace host
