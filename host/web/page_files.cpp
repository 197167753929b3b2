#include "host/web/page_files.h"

#include <iterator>

#include "host/failure.h"
#include "host/machine_file.h"

namespace host {
namespace {

constexpr const char* startPage = "/index.html";

struct FileType {
  std::string_view ending, type;
};
constexpr FileType fileTypes[] = {
    {".html", "text/html; charset=utf-8"},
    {".css", "text/css; charset=utf-8"},
    {".js", "text/javascript; charset=utf-8"},
    {".svg", "image/svg+xml"},
};

std::string typeOf(const std::filesystem::path& file) {
  for (const auto& [ending, type] : fileTypes) {
    if (file.extension() == ending) return std::string(type);
  }
  throw Failure(file.string() + ": no file that a page is made of");
}

}  // namespace

PageFiles::PageFiles(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::directory_iterator files(folder, error);
  if (error) throw Failure(folder.string() + ": " + error.message());
  for (const auto& file : files) {
    std::ifstream stream = openMachineFile(file.path());
    files_["/" + file.path().filename().string()] = {
        typeOf(file.path()),
        NSData(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>())};
  }
}

const WebResource* PageFiles::find(std::string_view path) const {
  const auto file = files_.find(path == "/" ? startPage : path);
  return file == files_.end() ? nullptr : &file->second;
}

}  // namespace host
