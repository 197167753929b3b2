#pragma once

#include <fmt/format.h>

#include <boost/beast/http.hpp>
#include <boost/beast/websocket.hpp>
#include <deque>

#include "host/web/rate_limit.h"
#include "host/web/web_connection.h"

namespace host {

inline constexpr std::size_t mostClients = 16;
inline constexpr std::size_t longestMessage = 4 * 1024;
inline constexpr double messagesPerSecond = 2000;  // Pings and pongs count.
inline constexpr double messagesAtOnce = 4000;
inline constexpr std::size_t mostTextWaiting = 4 * 1024 * 1024;
inline constexpr std::size_t longestReason = 123;  // As the protocol has it.
inline constexpr std::chrono::seconds handshakeTimeout(5);
inline constexpr std::chrono::seconds silenceTimeout(30);  // Pinged after half of it.
inline constexpr std::chrono::seconds closingTimeout(1);

inline constexpr const char* tooMany = "too many messages";

/// The beginning of a UTF-8 text, of no more than `most` bytes.
inline std::string_view cut(std::string_view text, std::size_t most) {
  const auto isContinuation = [&](std::size_t at) { return (text[at] & 0xC0) == 0x80; };
  if (text.size() <= most) return text;
  while (most > 0 && isContinuation(most)) --most;
  return text.substr(0, most);
}

inline WallTime wallTimeNow() {
  return std::chrono::duration<WallTime>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// A WebSocket. Pending operations keep it alive; it goes when reading has ended.
class WebSocketConnection final : public WebClient,
                                  public Connection,
                                  public std::enable_shared_from_this<WebSocketConnection> {
 public:
  WebSocketConnection(std::shared_ptr<WebServerState> server, tcp::socket socket)
      : server_(std::move(server)), stream_(std::move(socket)), closingTimer_(server_->loop) {
    server_->add(*this);
  }
  ~WebSocketConnection() override { server_->remove(*this); }

  void start(const beast::http::request<beast::http::empty_body>& request) {
    stream_.set_option(beast::websocket::stream_base::timeout{handshakeTimeout, silenceTimeout, true});
    stream_.read_message_max(longestMessage);
    stream_.auto_fragment(false);  // One message, one trip through the loop.
    stream_.control_callback([this](beast::websocket::frame_type, beast::string_view) {
      if (!limit_.take(wallTimeNow())) closeSoon(tooMany);
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
    beast::websocket::close_reason why(static_cast<std::uint16_t>(code));
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
    if (!limit_.take(wallTimeNow())) return close(CloseCode::PolicyViolation, tooMany);
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

  std::shared_ptr<WebServerState> server_;
  beast::websocket::stream<beast::tcp_stream> stream_;
  beast::flat_buffer buffer_;
  std::deque<Message> queue_;  // The first one is being written.
  std::size_t textWaiting_ = 0;
  asio::steady_timer closingTimer_;
  RateLimit limit_{messagesPerSecond, messagesAtOnce, wallTimeNow()};
  bool entered_ = false;  // The application knows it.
  bool closing_ = false;
};

}  // namespace host
