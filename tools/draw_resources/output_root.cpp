#include "tools/draw_resources/output_root.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace draw_resources {

void OutputRoot::write(const std::filesystem::path& relative, const std::string& bytes) const {
  const std::filesystem::path path = root_ / relative;
  std::error_code error;
  std::filesystem::create_directories(path.parent_path(), error);
  if (error) {
    throw OutputError(path.parent_path(), error.message());
  }
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) {
    throw OutputError(path, std::generic_category().message(errno));
  }
  const bool isWritten = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  const int writeError = errno;
  if (std::fclose(file) != 0 || !isWritten) {  // a full disk may show only when closing
    throw OutputError(path, std::generic_category().message(isWritten ? errno : writeError));
  }
}

}  // namespace draw_resources
