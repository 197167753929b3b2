#include "host/script_arguments.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>

#include "host/bad_script_line.h"

namespace host {
namespace {

// A day: far beyond any script, near enough for recordings to keep their times exactly.
constexpr CFTimeInterval longestDuration = 86400;

constexpr std::string_view durationOption = "--duration";

}  // namespace

ScriptArguments::ScriptArguments(const ScriptSyntax& syntax, std::span<const ScriptWord> words)
    : syntax_(syntax) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& text = words[i].text;
    if (words[i].quoted || !text.starts_with("--")) {
      plain_.push_back(text);
      continue;
    }
    auto known = std::ranges::find(syntax.options, text, &ScriptOption::name);
    if (known == syntax.options.end()) failWithUsage(fmt::format("unknown option \"{}\"", text));
    if (hasOption(text)) fail(fmt::format("{} given twice", text));
    if (known->takesValue && i + 1 == words.size()) failWithUsage(fmt::format("{} needs a value", text));
    options_.emplace_back(known->name, known->takesValue ? words[++i].text : "");
  }
  if (plain_.size() < syntax.fewest) failWithUsage("too few arguments");
  if (plain_.size() > syntax.most) failWithUsage("too many arguments");
}

const std::string& ScriptArguments::text(std::size_t index, std::string_view what) const {
  if (plain_[index].empty()) fail(fmt::format("{} must not be empty", what));
  return plain_[index];
}

CGPoint ScriptArguments::point(std::size_t index, std::string_view xName, std::string_view yName) const {
  return {number<CGFloat>(plain_[index], xName), number<CGFloat>(plain_[index + 1], yName)};
}

CFTimeInterval ScriptArguments::seconds(std::size_t index) const {
  return checkedSeconds(plain_[index], "seconds");
}

CFTimeInterval ScriptArguments::durationOr(CFTimeInterval otherwise) const {
  auto text = optionValue(durationOption);
  return text ? checkedSeconds(*text, "duration") : otherwise;
}

int ScriptArguments::wholeOr(std::string_view option, std::string_view what, int otherwise,
                             int largest) const {
  auto text = optionValue(option);
  if (!text) return otherwise;
  const auto value = number<double>(*text, what);
  if (value < 0 || value > largest || value != std::floor(value)) {
    fail(fmt::format("{} must be a whole number from 0 to {}", what, largest));
  }
  return int(value);
}

CGFloat ScriptArguments::positiveOr(std::string_view option, std::string_view what, CGFloat otherwise) const {
  auto text = optionValue(option);
  if (!text) return otherwise;
  const CGFloat value = number<CGFloat>(*text, what);
  if (value <= 0) fail(fmt::format("{} must be above 0", what));
  return value;
}

void ScriptArguments::fail(const std::string& cause) const {
  throw BadScriptLine(fmt::format("{}: {}", syntax_.verb, cause));
}

void ScriptArguments::failUnknownWord(const std::string& word) const {
  failWithUsage(fmt::format("unknown word \"{}\"", word));
}

void ScriptArguments::failWithUsage(const std::string& cause) const {
  fail(fmt::format("{}; usage: {}", cause, syntax_.usage));
}

std::optional<std::string> ScriptArguments::optionValue(std::string_view name) const {
  for (auto& [option, value] : options_) {
    if (option == name) return value;
  }
  return std::nullopt;
}

template <class Number>
Number ScriptArguments::number(const std::string& text, std::string_view what) const {
  Number value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error == std::errc::result_out_of_range) fail(fmt::format("{} is out of range: \"{}\"", what, text));
  // "inf" and "nan" are read, but are no numbers to a script.
  if (error != std::errc() || stop != end || !std::isfinite(value)) {
    fail(fmt::format("{} is not a number: \"{}\"", what, text));
  }
  return value;
}

CFTimeInterval ScriptArguments::checkedSeconds(const std::string& text, std::string_view what) const {
  const auto value = number<CFTimeInterval>(text, what);
  if (value < 0) fail(fmt::format("{} must not be negative", what));
  if (value > longestDuration) fail(fmt::format("{} must not exceed {}", what, longestDuration));
  return value;
}

}  // namespace host
