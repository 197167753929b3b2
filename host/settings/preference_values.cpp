#include "host/settings/preference_values.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <cstdint>

#include "host/failure.h"
#include "platform/uikit/ui_color_archive.h"

namespace host {
namespace {

constexpr char colorMark = '#';
constexpr std::size_t colorDigits = 6;
constexpr int hexadecimal = 16;
constexpr std::uint32_t largestByte = 255;
constexpr int redShift = 16, greenShift = 8;

std::string numberText(double number) { return jsonNumber(number).dump(); }

// What each control stores.

PropertyList store(const SwitchCell&, const Json& value) {
  if (!value.is_boolean()) throw Failure("not true or false");
  return value.get<bool>();
}

PropertyList store(const AppListCell&, const Json& value) { return store(SwitchCell(), value); }

PropertyList store(const ChoiceCell& cell, const Json& value) {
  std::string listed;
  for (const Choice& choice : cell.choices) {
    if (value == choice.value) return choice.value;
    listed += (listed.empty() ? "" : ", ") + choice.value;
  }
  throw Failure("not one of " + listed);
}

PropertyList store(const SliderCell& cell, const Json& value) {
  const double number = value.is_number() ? value.get<double>() : NAN;
  const bool isInRange = number >= cell.min && number <= cell.max;
  if (!isInRange || (cell.isWhole() && std::trunc(number) != number))
    throw Failure(fmt::format("not a {} from {} to {}", cell.isWhole() ? "whole number" : "number",
                              numberText(cell.min), numberText(cell.max)));
  if (cell.isWhole()) return static_cast<std::int64_t>(number);
  return number;
}

PropertyList store(const ColorCell&, const Json& value) {
  const std::string text = value.is_string() ? value.get<std::string>() : "";
  std::uint32_t bytes = 0;
  const char* end = text.data() + text.size();
  const bool isMarked = text.size() == 1 + colorDigits && text.front() == colorMark;
  if (!isMarked || std::from_chars(text.data() + 1, end, bytes, hexadecimal).ptr != end)
    throw Failure("not a colour like #ff8000");
  const auto component = [bytes](int shift) {
    return static_cast<CGFloat>(bytes >> shift & largestByte) / largestByte;
  };
  return archivedDataWithRootObject(
      UIColor::colorWithRed(component(redShift), component(greenShift), component(0), 1));
}

PropertyList store(const AppCell&, const Json& value) {
  if (!value.is_string() || value.get<std::string>().empty()) throw Failure("not a bundle identifier");
  return value.get<std::string>();
}

// What each control shows; null for what it makes nothing of.

Json show(const SwitchCell&, const PropertyList& stored) {
  const auto flag = stored.boolValue();
  return flag ? Json(*flag) : Json();
}

Json show(const AppListCell&, const PropertyList& stored) { return show(SwitchCell(), stored); }

Json show(const ChoiceCell&, const PropertyList& stored) {
  const auto* word = stored.as<std::string>();
  return word && word->size() <= longestShownText ? Json(*word) : Json();
}

Json show(const SliderCell& cell, const PropertyList& stored) {
  const Json number = plainJson(stored);
  if (!number.is_number()) return nullptr;
  // Readers cut reals to integers, and take other numbers as 32-bit floats.
  if (cell.isWhole()) return jsonNumber(std::trunc(number.get<double>()));
  return jsonNumber(static_cast<float>(number.get<double>()));
}

Json show(const ColorCell&, const PropertyList& stored) {
  const auto* data = stored.as<NSData>();
  const auto color = data ? unarchiveColorWithData(*data) : std::nullopt;
  if (!color) return nullptr;
  const auto byte = [](CGFloat component) { return std::lround(component * largestByte); };
  const auto [red, green, blue, alpha] = color->cgColor();
  return fmt::format("{}{:02x}{:02x}{:02x}", colorMark, byte(red), byte(green), byte(blue));
}

Json show(const AppCell&, const PropertyList& stored) { return show(ChoiceCell(), stored); }

}  // namespace

PropertyList storedValue(const Cell& cell, const Json& value) {
  return std::visit([&](const auto& control) { return store(control, value); }, cell);
}

Json shownValue(const Cell& cell, const PropertyList& stored) {
  return std::visit([&](const auto& control) { return show(control, stored); }, cell);
}

std::string preferencesPath(const std::string& domain) {
  return "/var/mobile/Library/Preferences/" + domain + ".plist";
}

Json plainJson(const PropertyList& value) {
  if (const auto* flag = value.as<bool>()) return *flag;
  if (const auto* integer = value.as<std::int64_t>()) return *integer;
  if (const auto* real = value.as<double>()) return *real;
  if (const auto* text = value.as<std::string>()) return *text;
  return nullptr;
}

}  // namespace host
