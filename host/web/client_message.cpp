#include "host/web/client_message.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "host/script_parser.h"

namespace host {
namespace {

constexpr double millisecondsPerSecond = 1000;
constexpr double largestStamp = 1e15;  // Milliseconds; up to here doubles tell one from the next.

/// Whether it is just that alternative, and none that converts into one.
template <class Command, class Variant>
constexpr bool isOneOf = false;
template <class Command, class... Alternatives>
constexpr bool isOneOf<Command, std::variant<Alternatives...>> = (std::is_same_v<Command, Alternatives> ||
                                                                  ...);

std::uint32_t wholeNumber(const Json& json, std::string_view what) {
  if (!json.is_number_unsigned() || json.get<std::uint64_t>() > std::numeric_limits<std::uint32_t>::max())
    throw BadMessage(fmt::format("{} must be a whole number of 32 bits", what));
  return json.get<std::uint32_t>();
}

double number(const Json& json, std::string_view what, double smallest, double largest) {
  const double value = json.is_number() ? json.get<double>() : std::numeric_limits<double>::quiet_NaN();
  if (!(value >= smallest && value <= largest))
    throw BadMessage(fmt::format("{} must be a number from {:g} to {:g}", what, smallest, largest));
  return value;
}

CGFloat coordinate(const Json& json, std::string_view what) {
  constexpr double largest = std::numeric_limits<CGFloat>::max();
  return CGFloat(number(json, what, -largest, largest));
}

std::string text(const Json& json, std::string_view what) {
  if (!json.is_string()) throw BadMessage(fmt::format("{} must be text", what));
  return json.get<std::string>();
}

// The page's own verbs.

struct PageVerb {
  std::string_view name;
  std::size_t argumentCount;
  ClientMessage (*read)(const Json& arguments);
};

constexpr PageVerb pageVerbs[] = {
    {"shown", 1,
     [](const Json& arguments) -> ClientMessage {
       return ShownMessage{wholeNumber(arguments[0], "shown: FRAME")};
     }},
    {"pace", 1,
     [](const Json& arguments) -> ClientMessage {
       return PaceMessage{number(arguments[0], "pace: FACTOR", 0, 1)};
     }},
    {"step", 0, [](const Json&) -> ClientMessage { return StepMessage{}; }},
    {"inspect", 2,
     [](const Json& arguments) -> ClientMessage {
       return InspectMessage{
           {coordinate(arguments[0], "inspect: X"), coordinate(arguments[1], "inspect: Y")}};
     }},
    {"set", 3,
     [](const Json& arguments) -> ClientMessage {
       return SetMessage{text(arguments[0], "set: DOMAIN"), text(arguments[1], "set: KEY"), arguments[2]};
     }},
    {"respring", 0, [](const Json&) -> ClientMessage { return RespringMessage{}; }},
};

// The script's verbs.

std::vector<ScriptWord> scriptWords(const std::string& verb, const Json& arguments) {
  std::vector<ScriptWord> words;
  for (const Json& argument : arguments) {
    if (argument.is_string()) {
      words.push_back({argument.get<std::string>()});
    } else if (argument.is_number()) {
      words.push_back({argument.dump()});
    } else {
      throw BadMessage(fmt::format("{}: an argument is neither text nor a number", verb));
    }
  }
  return words;
}

TouchMessage touchMessage(const TouchCommand& touch, const Json& message) {
  TouchMessage result{touch, std::nullopt};
  if (auto time = message.find("time"); time != message.end()) {
    result.stamp = number(*time, "touch: time", -largestStamp, largestStamp) / millisecondsPerSecond;
  }
  if (auto count = message.find("number"); count != message.end())
    result.number = wholeNumber(*count, "touch: number");
  return result;
}

ClientMessage fromScript(const std::string& verb, const Json& arguments, const Json& message) {
  const std::vector<ScriptWord> words = scriptWords(verb, arguments);
  const ScriptCommand command = parseScriptVerb(verb, words);
  return std::visit(
      [&](const auto& each) -> ClientMessage {
        using Command = std::decay_t<decltype(each)>;
        if constexpr (std::is_same_v<Command, TouchCommand>) {
          return touchMessage(each, message);
        } else if constexpr (std::is_same_v<Command, DescribeAllCommand>) {
          if (each.file) throw BadMessage("describe-all: no file can be written from a page");
          return each;
        } else if constexpr (isOneOf<Command, ClientMessage>) {
          return each;
        } else {
          throw BadMessage(fmt::format("{}: not from a page", verb));
        }
      },
      command);
}

}  // namespace

ClientMessage parseClientMessage(std::string_view text) {
  const Json message = Json::parse(text, nullptr, /*allow_exceptions=*/false);
  if (!message.is_object()) throw BadMessage("no JSON object");
  const auto verbMember = message.find("verb");
  if (verbMember == message.end() || !verbMember->is_string()) throw BadMessage("no verb");
  const auto verb = verbMember->get<std::string>();
  const Json arguments = message.value("arguments", Json::array());
  if (!arguments.is_array()) throw BadMessage("arguments must be a list");

  const auto ofPage = std::ranges::find(pageVerbs, verb, &PageVerb::name);
  if (ofPage != std::end(pageVerbs)) {
    if (arguments.size() != ofPage->argumentCount)
      throw BadMessage(fmt::format("{}: takes {} arguments", verb, ofPage->argumentCount));
    return ofPage->read(arguments);
  }
  try {
    return fromScript(verb, arguments, message);
  } catch (const BadScriptLine& cause) {
    throw BadMessage(cause.what());
  }
}

}  // namespace host
