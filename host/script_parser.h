#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "host/bad_script_line.h"
#include "host/script_command.h"

namespace host {

/// The command on one line; nothing for a line that is blank or only a comment. Throws BadScriptLine.
std::optional<ScriptCommand> parseScriptLine(std::string_view line);

/// How each verb is written, in the order in which documentation lists them.
std::vector<std::string_view> scriptVerbUsages();

}  // namespace host
