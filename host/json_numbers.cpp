#include "host/json_numbers.h"

#include <charconv>
#include <cmath>
#include <cstdint>

namespace host {
namespace {

// Whole numbers up to here are exact in both floats and integers.
constexpr double largestWhole = 1e15;
constexpr double timeStepsPerSecond = 1e9;
constexpr int pageIndent = 2;
constexpr int noIndent = -1;

std::string dump(const Json& json, int indent) {
  return json.dump(indent, ' ', false, Json::error_handler_t::replace) + "\n";
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

Json jsonRect(CGRect rect) {
  return Json::array({jsonNumber(rect.origin.x), jsonNumber(rect.origin.y), jsonNumber(rect.size.width),
                      jsonNumber(rect.size.height)});
}

Json jsonTime(CFTimeInterval time) {
  return jsonNumber(std::round(time * timeStepsPerSecond) / timeStepsPerSecond);
}

std::string jsonLine(const Json& json) { return dump(json, noIndent); }

std::string jsonPage(const Json& json) { return dump(json, pageIndent); }

}  // namespace host
