#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "host/bad_script_line.h"
#include "host/script_command.h"
#include "host/script_words.h"

namespace host {

/// The command on one line; nothing for a line that is blank or only a comment. Throws BadScriptLine.
std::optional<ScriptCommand> parseScriptLine(std::string_view line);

/// The command of a verb with its arguments, already in words. Throws BadScriptLine.
ScriptCommand parseScriptVerb(std::string_view verb, std::span<const ScriptWord> arguments);

/// How each verb is written, in the order in which documentation lists them.
std::vector<std::string_view> scriptVerbUsages();

}  // namespace host
