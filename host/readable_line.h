#pragma once

#include <string>
#include <string_view>

namespace host {

/// A message as one readable line, even where it quotes input that is neither: control characters are spelled
/// out, and what is too long loses its middle ("begin ... end"), for the cause stands at the end.
std::string asReadableLine(std::string_view message);

}  // namespace host
