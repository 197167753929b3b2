#include "host/script_words.h"

#include "host/bad_script_line.h"

namespace host {
namespace {

constexpr std::string_view blanks = " \t\r\n\v\f";

bool isBlank(char character) { return blanks.find(character) != blanks.npos; }

}  // namespace

std::vector<ScriptWord> splitScriptLine(std::string_view line) {
  if (line.find('\0') != line.npos) throw BadScriptLine("a NUL character");
  std::vector<ScriptWord> words;
  std::size_t at = 0;
  while ((at = line.find_first_not_of(blanks, at)) != line.npos && line[at] != '#') {
    ScriptWord word;
    bool inQuotes = false;
    for (; at < line.size() && (inQuotes || !isBlank(line[at])); ++at) {
      if (line[at] == '"') {
        inQuotes = !inQuotes;
        word.quoted = true;
      } else {
        word.text += line[at];
      }
    }
    if (inQuotes) throw BadScriptLine("quote not closed");
    words.push_back(std::move(word));
  }
  return words;
}

}  // namespace host
