// Script lines: read without harm, words kept as they stand, and complaints of one line.

#include <fmt/format.h>

#include <sstream>

#include "fuzz/promise.h"
#include "host/script_parser.h"

namespace {

void checkWords(const std::string& line) {
  const std::vector<host::ScriptWord> words = host::splitScriptLine(line);
  std::string quoted;
  for (const host::ScriptWord& word : words) quoted += fmt::format("\"{}\" ", word.text);
  const auto again = [&quoted]() noexcept { return host::splitScriptLine(quoted); }();
  const auto sameText = [](const host::ScriptWord& one, const host::ScriptWord& other) {
    return one.text == other.text;
  };
  fuzz::require(std::equal(words.begin(), words.end(), again.begin(), again.end(), sameText),
                "words in quotes are the same words");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  std::istringstream script(std::string(bytes, bytes + size));
  for (std::string line; std::getline(script, line);) {
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
