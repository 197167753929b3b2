#include "host/web/web_server.h"

#include <fmt/format.h>

#include "host/failure.h"
#include "host/web/http_connection.h"
#include "host/web/web_connection.h"

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr auto acceptRetry = 100ms;  // After the machine had no socket to give.

void accept(const std::shared_ptr<WebServerState>& server) {
  server->acceptor.async_accept([server](error_code error, tcp::socket socket) {
    if (server->stopped) return;
    if (error) {
      server->acceptTimer.expires_after(acceptRetry);
      return server->acceptTimer.async_wait([server](error_code stopped) {
        if (!stopped && !server->stopped) accept(server);
      });
    }
    server->makeRoom();
    error_code ignored;  // Then it is merely slower.
    socket.set_option(tcp::no_delay(true), ignored);
    std::make_shared<HttpConnection>(server, std::move(socket))->read();
    accept(server);
  });
}

tcp::acceptor listenAt(asio::io_context& loop, const ListenAddress& address) {
  try {
    return {loop, tcp::endpoint(asio::ip::make_address(address.host), address.port)};
  } catch (const boost::system::system_error& error) {
    throw Failure(fmt::format("{}: {}", address.authority(), error.code().message()));
  }
}

tcp::acceptor listenOn(asio::io_context& loop, ListeningSocket socket) {
  sockaddr_storage name{};
  socklen_t length = sizeof name;
  if (getsockname(socket, reinterpret_cast<sockaddr*>(&name), &length) != 0)
    throw Failure("the listening socket has been lost");
  return {loop, name.ss_family == AF_INET6 ? tcp::v6() : tcp::v4(), socket};
}

}  // namespace

WebServer::WebServer(asio::io_context& loop, const ListenAddress& address)
    : state_(std::make_shared<WebServerState>(loop, listenAt(loop, address))) {}

WebServer::WebServer(asio::io_context& loop, ListeningSocket socket)
    : state_(std::make_shared<WebServerState>(loop, listenOn(loop, socket))) {}

WebServer::~WebServer() = default;

ListenAddress WebServer::address() const {
  const tcp::endpoint endpoint = state_->acceptor.local_endpoint();
  return {endpoint.address().to_string(), endpoint.port()};
}

void WebServer::serve(const RequestGuard& guard, const PageFiles& page, WebApplication& application) {
  state_->guard = &guard;
  state_->page = &page;
  state_->application = &application;
  accept(state_);
}

void WebServer::stop(CloseCode code, std::string_view reason) {
  state_->stopped = {code, std::string(reason)};
  state_->acceptor.cancel();
  state_->acceptTimer.cancel();
  const auto open = state_->connections;
  for (Connection* connection : open) connection->stop(code, reason);
  if (open.empty()) return;
  state_->closingTimer.expires_after(closingTimeout);
  state_->closingTimer.async_wait([state = state_](error_code allGone) {
    if (allGone) return;
    const auto silent = state->connections;
    for (Connection* connection : silent) connection->drop();
  });
}

ListeningSocket WebServer::release() { return state_->acceptor.release(); }

}  // namespace host