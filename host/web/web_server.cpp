// The one place that knows the HTTP and WebSocket library.

#include "host/web/web_server.h"

#include <fmt/format.h>

#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <boost/beast/websocket.hpp>
#include <charconv>
#include <chrono>
#include <deque>
#include <vector>

#include "host/failure.h"
#include "host/web/rate_limit.h"

namespace host {
namespace {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
namespace websocket = beast::websocket;
using asio::ip::tcp;
using boost::system::error_code;
using namespace std::chrono_literals;

constexpr std::size_t mostClients = 16;
constexpr std::size_t mostConnections = 64;      // Those that only fetch files included.
constexpr std::uint32_t longestHead = 8 * 1024;  // Bytes of a request.
constexpr std::size_t longestMessage = 4 * 1024;
constexpr double messagesPerSecond = 2000;  // Pings and pongs count.
constexpr double messagesAtOnce = 4000;
constexpr std::size_t mostTextWaiting = 1024 * 1024;
constexpr std::size_t longestReason = 123;  // As the protocol has it.
constexpr auto requestTimeout = 10s;
constexpr auto handshakeTimeout = 5s;
constexpr auto silenceTimeout = 30s;  // Pinged after half of it.
constexpr auto closingTimeout = 1s;
constexpr auto acceptRetry = 100ms;  // After the machine had no socket to give.

constexpr const char* tooMany = "too many messages";

constexpr std::string_view pagePath = "/";
constexpr std::string_view socketPath = "/socket";
constexpr std::string_view iconsPath = "/icons/";

/// Nothing but this server's own files, and no page of others around them.
constexpr const char* contentPolicy =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self'; "
    "base-uri 'none'; form-action 'none'; frame-ancestors 'none'";

std::string_view view(beast::string_view text) { return {text.data(), text.size()}; }

/// The beginning of a UTF-8 text, of no more than `most` bytes.
std::string_view cut(std::string_view text, std::size_t most) {
  const auto isContinuation = [&](std::size_t at) { return (text[at] & 0xC0) == 0x80; };
  if (text.size() <= most) return text;
  while (most > 0 && isContinuation(most)) --most;
  return text.substr(0, most);
}

/// A path with its %XX read; a '%' that begins none stands for itself.
std::string decoded(std::string_view path) {
  constexpr std::size_t escapeLength = 3;
  constexpr int hexadecimal = 16;
  std::string result;
  for (std::size_t at = 0; at < path.size(); ++at) {
    std::uint8_t byte = 0;
    const std::string_view escape = path.substr(at, escapeLength);
    const char* end = escape.data() + escape.size();
    const bool isEscape = escape.size() == escapeLength && escape[0] == '%' &&
                          std::from_chars(escape.data() + 1, end, byte, hexadecimal).ptr == end;
    result += isEscape ? char(byte) : path[at];
    if (isEscape) at += escapeLength - 1;
  }
  return result;
}

/// "/icons/x?token=y" in its parts, the path with its %XX read.
struct Target {
  explicit Target(std::string_view text) {
    const std::string_view encoded = text.substr(0, text.find('?'));
    path = decoded(encoded);
    if (encoded.size() == text.size()) return;
    const std::string_view query = text.substr(encoded.size() + 1);
    if (query.starts_with(tokenParameter)) token = query.substr(tokenParameter.size());
  }
  std::string path;
  std::string_view token;  // Of the text.
};

WallTime now() {
  return std::chrono::duration<WallTime>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

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

}  // namespace

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

namespace {

using Shared = std::shared_ptr<WebServerState>;

/// A WebSocket. Pending operations keep it alive; it goes when reading has ended.
class WebSocketConnection final : public WebClient,
                                  public Connection,
                                  public std::enable_shared_from_this<WebSocketConnection> {
 public:
  WebSocketConnection(Shared server, tcp::socket socket)
      : server_(std::move(server)), stream_(std::move(socket)), closingTimer_(server_->loop) {
    server_->add(*this);
  }
  ~WebSocketConnection() override { server_->remove(*this); }

  void start(const http::request<http::empty_body>& request) {
    stream_.set_option(websocket::stream_base::timeout{handshakeTimeout, silenceTimeout, true});
    stream_.read_message_max(longestMessage);
    stream_.auto_fragment(false);  // One message, one trip through the loop.
    stream_.control_callback([this](websocket::frame_type, beast::string_view) {
      if (!limit_.take(now())) closeSoon(tooMany);
    });
    stream_.async_accept(request, [self = shared_from_this()](error_code error) {
      if (!error) self->enter();
    });
  }

  void sendText(std::string text) override {
    if (closing_) return;
    textWaiting_ += text.size();
    if (textWaiting_ > mostTextWaiting) return drop();
    enqueue({true, std::move(text), nullptr});
  }

  void sendPicture(const PictureHead& head, std::shared_ptr<const NSData> picture) override {
    enqueue({false, std::string(head.begin(), head.end()), std::move(picture)});
  }

  void close(CloseCode code, std::string_view reason) override {
    if (std::exchange(closing_, true)) return;
    leaveSoon();
    websocket::close_reason why(static_cast<std::uint16_t>(code));
    const std::string_view readable = cut(reason, longestReason);
    why.reason.assign(readable.data(), readable.size());
    stream_.async_close(why, [self = shared_from_this()](error_code) { self->closingTimer_.cancel(); });
    // Whoever does not read does not let us say it either.
    closingTimer_.expires_after(closingTimeout);
    closingTimer_.async_wait([self = shared_from_this()](error_code closed) {
      if (!closed) self->drop();
    });
  }

  void stop(CloseCode code, std::string_view reason) override {
    if (entered_) close(code, reason);  // Otherwise it is told as soon as it can be.
  }
  void drop() override {
    closing_ = true;
    leaveSoon();
    beast::get_lowest_layer(stream_).close();
  }
  bool hasEntered() const override { return entered_; }

 private:
  struct Message {
    bool isText;
    std::string head;
    std::shared_ptr<const NSData> body;  // Null for a text.
  };

  void enter() {
    if (server_->stopped) return close(server_->stopped->code, server_->stopped->reason);
    if (server_->clients >= mostClients)
      return close(CloseCode::TryAgainLater, fmt::format("{} clients are here already", mostClients));
    ++server_->clients;
    entered_ = true;
    server_->application->joined(*this);
    read();
  }

  void read() {
    stream_.async_read(buffer_, [self = shared_from_this()](error_code error, std::size_t) {
      error ? self->leave() : self->receive();
    });
  }

  void receive() {
    if (closing_) return;  // Closing reads on by itself.
    if (!stream_.got_text()) return close(CloseCode::PolicyViolation, "messages are text");
    if (!limit_.take(now())) return close(CloseCode::PolicyViolation, tooMany);
    const auto data = buffer_.cdata();
    server_->application->received(*this, {static_cast<const char*>(data.data()), data.size()});
    buffer_.clear();
    if (!closing_) read();
  }

  void leave() {
    closing_ = true;
    if (!std::exchange(entered_, false)) return;
    --server_->clients;
    server_->application->left(*this);
  }
  /// For where the application, or the library, is in the middle of something.
  void leaveSoon() {
    asio::post(server_->loop, [self = shared_from_this()] { self->leave(); });
  }
  void closeSoon(std::string_view reason) {
    asio::post(server_->loop,
               [self = shared_from_this(), reason] { self->close(CloseCode::PolicyViolation, reason); });
  }

  void enqueue(Message message) {
    if (closing_) return;
    queue_.push_back(std::move(message));
    if (queue_.size() == 1) write();
  }

  void write() {
    const Message& message = queue_.front();
    std::array<asio::const_buffer, 2> parts{asio::buffer(message.head)};
    if (message.body) parts[1] = asio::buffer(*message.body);
    stream_.text(message.isText);
    stream_.async_write(parts, [self = shared_from_this()](error_code error, std::size_t) {
      if (!error) self->written();
    });
  }

  void written() {
    if (queue_.front().isText) textWaiting_ -= queue_.front().head.size();
    queue_.pop_front();
    if (!queue_.empty() && !closing_) write();
  }

  Shared server_;
  websocket::stream<beast::tcp_stream> stream_;
  beast::flat_buffer buffer_;
  std::deque<Message> queue_;  // The first one is being written.
  std::size_t textWaiting_ = 0;
  asio::steady_timer closingTimer_;
  RateLimit limit_{messagesPerSecond, messagesAtOnce, now()};
  bool entered_ = false;  // The application knows it.
  bool closing_ = false;
};

/// Whether the browser says that another site's page is behind the request.
bool isFromAnotherSite(const http::request_header<>& request) {
  const std::string_view site = view(request["Sec-Fetch-Site"]);
  return !site.empty() && site != "same-origin" && site != "none";
}

/// Answers requests for files, until one asks for the WebSocket. Pending operations keep it alive.
class HttpConnection final : public Connection, public std::enable_shared_from_this<HttpConnection> {
 public:
  HttpConnection(Shared server, tcp::socket socket) : server_(std::move(server)), stream_(std::move(socket)) {
    server_->add(*this);
  }
  ~HttpConnection() override { server_->remove(*this); }

  void read() {
    parser_.emplace();
    parser_->header_limit(longestHead);
    parser_->body_limit(0);
    stream_.expires_after(requestTimeout);
    http::async_read(stream_, buffer_, *parser_, [self = shared_from_this()](error_code error, std::size_t) {
      if (!error) self->handle(self->parser_->release());
    });
  }

  void stop(CloseCode, std::string_view) override { drop(); }
  void drop() override { stream_.close(); }
  bool hasEntered() const override { return false; }

 private:
  using Request = http::request<http::empty_body>;
  using Response = http::response<http::vector_body<std::uint8_t>>;

  void handle(Request request) {
    const Target target(view(request.target()));
    RequestClaims claims{view(request[http::field::host]), std::nullopt, target.token};
    if (auto origin = request.find(http::field::origin); origin != request.end())
      claims.origin = view(origin->value());

    const WebResource* file = server_->page->find(target.path);
    // Its parts are everybody's; the page itself says early that the token is missing.
    const bool isPage = file && file == server_->page->find(pagePath);
    const bool needsToken = !file || isPage;
    // A link to the page may stand anywhere; nothing else is fetched from elsewhere.
    const bool isFetchedFromElsewhere = !isPage && isFromAnotherSite(request);
    if (!server_->guard->isForUs(claims) || isFetchedFromElsewhere)
      return refuse(request, http::status::forbidden, "not from there");
    if (needsToken && !server_->guard->knowsToken(claims))
      return refuse(request, http::status::forbidden, "the address lacks its token");
    if (request.method() != http::verb::get && request.method() != http::verb::head)
      return refuse(request, http::status::method_not_allowed, "only for reading");
    if (target.path == socketPath) return upgrade(request);
    if (file) return answer(request, http::status::ok, *file);
    if (target.path.starts_with(iconsPath)) {
      if (auto icon = server_->application->icon(std::string_view(target.path).substr(iconsPath.size())))
        return answer(request, http::status::ok, *icon);
    }
    refuse(request, http::status::not_found, "nothing there");
  }

  void upgrade(const Request& request) {
    if (!websocket::is_upgrade(request))
      return refuse(request, http::status::upgrade_required, "a WebSocket is here");
    stream_.expires_never();
    std::make_shared<WebSocketConnection>(server_, stream_.release_socket())->start(request);
  }

  void refuse(const Request& request, http::status status, std::string_view reason) {
    answer(request, status, {"text/plain; charset=utf-8", NSData(reason.begin(), reason.end())});
  }

  void answer(const Request& request, http::status status, const WebResource& resource) {
    auto response = std::make_shared<Response>(status, request.version());
    response->set(http::field::content_type, resource.type);
    response->set("Content-Security-Policy", contentPolicy);
    response->set(http::field::cache_control, "no-cache");
    response->set("X-Content-Type-Options", "nosniff");
    response->set("Referrer-Policy", "no-referrer");
    response->set("Cross-Origin-Resource-Policy", "same-origin");
    response->keep_alive(request.keep_alive());
    response->content_length(resource.bytes.size());
    if (request.method() != http::verb::head) response->body() = resource.bytes;
    stream_.expires_after(requestTimeout);
    http::async_write(stream_, *response,
                      [self = shared_from_this(), response](error_code error, std::size_t) {
                        if (!error && response->keep_alive()) self->read();
                      });
  }

  Shared server_;
  beast::tcp_stream stream_;
  beast::flat_buffer buffer_;
  std::optional<http::request_parser<http::empty_body>> parser_;  // Of the request being read.
};

void accept(const Shared& server) {
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
