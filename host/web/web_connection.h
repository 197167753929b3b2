#pragma once

// What the server's connections have in common. Internal to web_server.cpp, the one place that is compiled
// with the HTTP and WebSocket library.

#include <algorithm>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core.hpp>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/web/page_files.h"
#include "host/web/request_guard.h"
#include "host/web/web_application.h"

namespace host {

namespace asio = boost::asio;
namespace beast = boost::beast;
using asio::ip::tcp;
using boost::system::error_code;

inline constexpr std::size_t mostConnections = 64;  // Those that only fetch files included.

inline std::string_view view(beast::string_view text) { return {text.data(), text.size()}; }

/// Someone at the other end of a socket, whatever is spoken over it.
class Connection {
 public:
  virtual ~Connection() = default;
  /// The server stops: says so, where there is somebody to be told.
  virtual void stop(CloseCode code, std::string_view reason) = 0;
  /// At once, and without a word.
  virtual void drop() = 0;
  /// Whether it has made it past the door; others may have to make room.
  virtual bool hasEntered() const = 0;
};

/// What all connections share.
class WebServerState {
 public:
  WebServerState(asio::io_context& loop, tcp::acceptor acceptor)
      : loop(loop), acceptor(std::move(acceptor)), acceptTimer(loop), closingTimer(loop) {}

  void add(Connection& connection) { connections.push_back(&connection); }
  void remove(Connection& connection) {
    std::erase(connections, &connection);
    if (stopped && connections.empty()) closingTimer.cancel();
  }
  /// Room for one more: the oldest of those that have not entered has to go.
  void makeRoom() {
    if (connections.size() < mostConnections) return;
    const auto idler = std::ranges::find_if(connections, [](auto* each) { return !each->hasEntered(); });
    if (idler != connections.end()) (*idler)->drop();
  }

  asio::io_context& loop;
  tcp::acceptor acceptor;
  asio::steady_timer acceptTimer, closingTimer;
  const RequestGuard* guard = nullptr;  // These three are the caller's.
  const PageFiles* page = nullptr;
  WebApplication* application = nullptr;
  std::vector<Connection*> connections;  // By age. Each takes itself out.
  std::size_t clients = 0;               // Those of them that the application knows.
  struct Stop {
    CloseCode code;
    std::string reason;
  };
  std::optional<Stop> stopped;
};

}  // namespace host
