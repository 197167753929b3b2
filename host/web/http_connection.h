#pragma once

#include <boost/beast/http.hpp>

#include "host/web/request_target.h"
#include "host/web/web_connection.h"
#include "host/web/web_socket_connection.h"

namespace host {

namespace http = beast::http;

inline constexpr std::uint32_t longestHead = 8 * 1024;  // Bytes of a request.
inline constexpr std::chrono::seconds requestTimeout(10);

inline constexpr std::string_view pagePath = "/";
inline constexpr std::string_view socketPath = "/socket";
inline constexpr std::string_view iconsPath = "/icons/";

/// Nothing but this server's own files, and no page of others around them.
inline constexpr const char* contentPolicy =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self'; "
    "base-uri 'none'; form-action 'none'; frame-ancestors 'none'";

/// Whether the browser says that another site's page is behind the request.
inline bool isFromAnotherSite(const http::request_header<>& request) {
  const std::string_view site = view(request["Sec-Fetch-Site"]);
  return !site.empty() && site != "same-origin" && site != "none";
}

/// Answers requests for files, until one asks for the WebSocket. Pending operations keep it alive.
class HttpConnection final : public Connection, public std::enable_shared_from_this<HttpConnection> {
 public:
  HttpConnection(std::shared_ptr<WebServerState> server, tcp::socket socket)
      : server_(std::move(server)), stream_(std::move(socket)) {
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
    const RequestTarget target(view(request.target()));
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
    if (!beast::websocket::is_upgrade(request))
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

  std::shared_ptr<WebServerState> server_;
  beast::tcp_stream stream_;
  beast::flat_buffer buffer_;
  std::optional<http::request_parser<http::empty_body>> parser_;  // Of the request being read.
};

}  // namespace host
