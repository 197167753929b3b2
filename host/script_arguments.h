#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/script_words.h"
#include "platform/coregraphics/cg_geometry.h"
#include "platform/foundation/run_loop.h"

namespace host {

struct ScriptOption {
  std::string_view name;  ///< "--duration"
  bool takesValue;
};

/// What a verb takes: how it is written, how many plain arguments, which options.
struct ScriptSyntax {
  std::string_view verb;
  std::string_view usage;
  std::size_t fewest;
  std::size_t most;
  std::vector<ScriptOption> options = {};
};

/// The arguments of one line, counted and sorted into plain ones and options. Everything here throws
/// BadScriptLine, with the verb before the cause.
class ScriptArguments {
 public:
  /// `words` without the verb.
  ScriptArguments(const ScriptSyntax& syntax, std::span<const ScriptWord> words);

  bool has(std::size_t index) const { return index < plain_.size(); }
  /// Plain argument `index`, which must not be empty.
  const std::string& text(std::size_t index, std::string_view what) const;
  CGPoint point(std::size_t index, std::string_view xName, std::string_view yName) const;
  CFTimeInterval seconds(std::size_t index) const;
  /// The value that plain argument `index` stands for.
  template <class T, std::size_t N>
  T choice(std::size_t index, const std::pair<std::string_view, T> (&choices)[N]) const {
    for (auto& [word, value] : choices) {
      if (plain_[index] == word) return value;
    }
    failUnknownWord(plain_[index]);
  }

  bool hasOption(std::string_view name) const { return optionValue(name).has_value(); }
  CFTimeInterval durationOr(CFTimeInterval otherwise) const;  ///< Of --duration.
  /// Whole, from 0 to `largest`.
  int wholeOr(std::string_view option, std::string_view what, int otherwise, int largest) const;
  CGFloat positiveOr(std::string_view option, std::string_view what, CGFloat otherwise) const;

  [[noreturn]] void fail(const std::string& cause) const;
  [[noreturn]] void failUnknownWord(const std::string& word) const;
  [[noreturn]] void failWithUsage(const std::string& cause) const;

 private:
  std::optional<std::string> optionValue(std::string_view name) const;
  template <class Number>
  Number number(const std::string& text, std::string_view what) const;
  CFTimeInterval checkedSeconds(const std::string& text, std::string_view what) const;

  const ScriptSyntax& syntax_;
  std::vector<std::string> plain_;
  std::vector<std::pair<std::string_view, std::string>> options_;
};

}  // namespace host
