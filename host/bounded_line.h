#pragma once

#include <istream>
#include <string>

namespace host {

/// Takes the next line, without its end, from `lines`; false when there is none or it cannot be read to its
/// end. Of a line longer than `longest` bytes only one byte more is taken.
bool takeBoundedLine(std::istream& lines, std::string& line, std::size_t longest);

}  // namespace host
