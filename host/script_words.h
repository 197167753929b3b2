#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

struct ScriptWord {
  std::string text;
  bool quoted = false;  ///< Some of it stood in double quotes: it is a name, whatever it looks like.
};

/// The words of a line, without its comment. Double quotes keep blanks and '#' together; a '#' at the start
/// of a word begins a comment. Throws BadScriptLine for a quote that is not closed.
std::vector<ScriptWord> splitScriptLine(std::string_view line);

}  // namespace host
