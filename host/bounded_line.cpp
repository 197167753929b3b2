#include "host/bounded_line.h"

namespace host {

bool takeBoundedLine(std::istream& lines, std::string& line, std::size_t longest) {
  line.clear();
  for (char byte; line.size() <= longest && lines.get(byte);) {
    if (byte == '\n') return true;
    line += byte;
  }
  return !line.empty() && !lines.bad();
}

}  // namespace host
