#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/web/web_client.h"

namespace host {

/// Something that a GET answers.
struct WebResource {
  std::string type;  ///< "text/css"
  NSData bytes;
};

/// What a web server serves. It is told of clients in order: joined, received any number of times, left; the
/// reference is good until `left` returns.
class WebApplication {
 public:
  virtual void joined(WebClient& client) = 0;
  virtual void received(WebClient& client, std::string_view text) = 0;
  virtual void left(WebClient& client) = 0;
  /// What is at "/icons/NAME"; nothing: not found.
  virtual std::optional<WebResource> icon(std::string_view name) = 0;

 protected:
  ~WebApplication() = default;
};

}  // namespace host
