#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

#include "host/json_text.h"
#include "host/script_command.h"

namespace host {

/// A message that no page of ours sends; the text is the cause, in one line.
class BadMessage : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// What a client may ask for: the script's verbs that act on the device and take no time of their own, and
// the page's own.

struct TouchMessage {
  TouchCommand touch;
  std::optional<double> stamp;  ///< Seconds on the client's clock.
  std::uint32_t number = 0;     ///< The client's own; 0 for none.
};
struct ShownMessage {
  std::uint32_t picture;
};
struct PaceMessage {
  double factor;  ///< 0 to 1.
};
struct StepMessage {};
struct InspectMessage {
  CGPoint point;
};
struct SetMessage {
  std::string domain, key;
  Json value;
};
struct RespringMessage {};

using ClientMessage =
    std::variant<LaunchCommand, TerminateCommand, ButtonCommand, UnlockCommand, RotateCommand,
                 KeyboardCommand, ActivatorCommand, NotifyPostCommand, DescribeAllCommand, TouchMessage,
                 ShownMessage, PaceMessage, StepMessage, InspectMessage, SetMessage, RespringMessage>;

/// Reads one message. Throws BadMessage.
ClientMessage parseClientMessage(std::string_view text);

}  // namespace host
