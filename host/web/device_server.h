#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/asio/steady_timer.hpp>
#include <optional>
#include <string>

#include "host/spring_board.h"
#include "host/web/live_device.h"
#include "host/web/request_guard.h"
#include "host/web/serve_options.h"
#include "host/web/web_server.h"

namespace host {

/// Lets people use a device over the web, in real time: the one place where the device's time comes from the
/// machine's clock. All on the thread that calls `run`.
class DeviceServer : private WebApplication {
 public:
  /// Takes the address, or goes on with the socket of a server before this one. From here on
  /// interruptions wait for `run`, whoever handled them before. Throws Failure.
  explicit DeviceServer(const ServeOptions& options, std::optional<ListeningSocket> socket = std::nullopt);

  /// What to type into a browser on this machine or, where it listens to all, on one beside it.
  std::string pageAddress() const;

  enum class End {
    SwitchedOff,  ///< By an interruption.
    Respring,     ///< A client wants the device to start afresh.
  };
  /// Serves the device until one of these; all clients have gone then. To be called once.
  End run(SpringBoard& springBoard, PreferencePanes& panes);

  /// The listening socket, for a server after this one; once, after `run`.
  ListeningSocket release() { return server_.release(); }

 private:
  void joined(WebClient& client) override;
  void received(WebClient& client, std::string_view text) override;
  void left(WebClient& client) override;
  std::optional<WebResource> icon(std::string_view name) override;

  void turnSoon();
  void turn();
  void stop(End end, CloseCode code, std::string_view reason);

  boost::asio::io_context loop_;
  WebServer server_;
  std::optional<std::string> token_;
  RequestGuard guard_;
  PageFiles page_;
  boost::asio::signal_set signals_;
  boost::asio::steady_timer timer_{loop_};  // For the device's next turn.
  LiveDevice* device_ = nullptr;            // While it runs.
  bool turnIsQueued_ = false;
  bool stopping_ = false;
  End end_ = End::SwitchedOff;
};

}  // namespace host
