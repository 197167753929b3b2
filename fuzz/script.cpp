// Script lines: read without harm, words kept as they stand, and complaints of one line.

#include <fmt/format.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "fuzz/promise.h"
#include "host/script_parser.h"

namespace {

std::vector<host::ScriptWord> quotedWords(const std::string& line) {
  try {
    return host::splitScriptLine(line);
  } catch (const host::BadScriptLine&) {
    fuzz::require(false, "words in quotes are a line");
    return {};
  }
}

void checkWords(const std::string& line) {
  const std::vector<host::ScriptWord> words = host::splitScriptLine(line);
  std::string quoted;
  for (const host::ScriptWord& word : words) quoted += fmt::format("\"{}\" ", word.text);
  const std::vector<host::ScriptWord> again = quotedWords(quoted);
  const auto sameText = [](const host::ScriptWord& one, const host::ScriptWord& other) {
    return one.text == other.text;
  };
  fuzz::require(std::equal(words.begin(), words.end(), again.begin(), again.end(), sameText),
                "words in quotes are the same words");
}

/// Whatever a text consists of, but for the quotes that would end it and the NUL that no line has.
void checkText(std::string text) {
  std::erase_if(text, [](char character) { return character == '"' || character == '\0'; });
  const std::vector<host::ScriptWord> words = quotedWords(fmt::format("\"{}\"", text));
  fuzz::require(words.size() == 1 && words.front().text == text, "a text in quotes is one word");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  std::istringstream script(std::string(bytes, bytes + size));
  for (std::string line; std::getline(script, line);) {
    checkText(line);
    try {
      checkWords(line);
      host::parseScriptLine(line);
    } catch (const host::BadScriptLine& cause) {
      fuzz::require(std::string_view(cause.what()).find('\n') == std::string_view::npos,
                    "a cause is one line");
    }
  }
  return 0;
}
