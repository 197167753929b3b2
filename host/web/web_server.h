#pragma once

#include <boost/asio/io_context.hpp>
#include <memory>

#include "host/web/listening_socket.h"
#include "host/web/page_files.h"
#include "host/web/request_guard.h"
#include "host/web/web_application.h"

namespace host {

class WebServerState;

/// Serves a page and its WebSocket, on the loop that it was made with; nothing happens but while that runs.
/// Who gets in, how many, how much and how often they may send and how slowly they may read is between
/// clients and the server; what they say is the application's business.
class WebServer {
 public:
  /// Listens there at once; connections wait until `serve`. Throws Failure where nobody can.
  WebServer(boost::asio::io_context& loop, const ListenAddress& address);
  /// Goes on listening on a socket that listens already.
  WebServer(boost::asio::io_context& loop, ListeningSocket socket);
  ~WebServer();

  /// Where it listens, the port that was free included.
  ListenAddress address() const;

  /// Lets clients in. Everything given outlives the server.
  void serve(const RequestGuard& guard, const PageFiles& page, WebApplication& application);
  /// Lets nobody in any more and closes every connection. When the last one has gone, the server leaves the
  /// loop; those that do not answer are given a second.
  void stop(CloseCode code, std::string_view reason);
  /// Gives the listening socket away, connections that wait on it included. After `stop`, once.
  ListeningSocket release();

 private:
  std::shared_ptr<WebServerState> state_;  // Connections share it.
};

}  // namespace host
