#include "host/json_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace host {
namespace {

// Whole numbers up to here are exact in both floats and integers.
constexpr double largestWhole = 1e15;
constexpr double timeStepsPerSecond = 1e9;
constexpr int pageIndent = 2;

std::string compact(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

bool holdsStructures(const Json& json) {
  return json.is_object() || std::ranges::any_of(json, [](const Json& item) { return item.is_structured(); });
}

/// The text of `json`, which starts at column `indent`: a line for each member, lists of numbers in one line.
std::string laidOut(const Json& json, int indent) {
  if (!json.is_structured() || json.empty() || !holdsStructures(json)) return compact(json);
  const std::string lineStart = "\n" + std::string(indent + pageIndent, ' ');
  std::string text;
  for (const auto& [key, value] : json.items()) {
    text += (text.empty() ? "" : ",") + lineStart;
    if (json.is_object()) text += compact(key) + ": ";
    text += laidOut(value, indent + pageIndent);
  }
  text += "\n" + std::string(indent, ' ');
  return json.is_object() ? "{" + text + "}" : "[" + text + "]";
}

}  // namespace

Json jsonNumber(double value) {
  if (!std::isfinite(value)) return nullptr;
  if (std::abs(value) < largestWhole && std::trunc(value) == value) return static_cast<std::int64_t>(value);
  return value;
}

Json jsonNumber(float value) {
  char text[32];
  const auto written = std::to_chars(text, text + sizeof text, value);
  double decimal = 0;
  std::from_chars(text, written.ptr, decimal);
  return jsonNumber(decimal);
}

Json jsonPoint(CGPoint point) { return Json::array({jsonNumber(point.x), jsonNumber(point.y)}); }

Json jsonRect(CGRect rect) {
  return Json::array({jsonNumber(rect.origin.x), jsonNumber(rect.origin.y), jsonNumber(rect.size.width),
                      jsonNumber(rect.size.height)});
}

Json jsonTime(CFTimeInterval time) {
  return jsonNumber(std::round(time * timeStepsPerSecond) / timeStepsPerSecond);
}

std::string jsonLine(const Json& json) { return compact(json) + "\n"; }

std::string jsonPage(const Json& json) { return laidOut(json, 0) + "\n"; }

}  // namespace host
