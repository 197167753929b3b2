#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "host/web/web_application.h"

namespace host {

/// The files of the page, read once: what a server has by heart it need not look for by a path that somebody
/// sent.
class PageFiles {
 public:
  /// Reads every file of `folder`, which has no folders in it. Throws Failure.
  explicit PageFiles(const std::filesystem::path& folder);

  /// The file at `path` ("/style.css"; "/" is index.html), or null.
  const WebResource* find(std::string_view path) const;

 private:
  std::map<std::string, WebResource, std::less<>> files_;  // By path.
};

}  // namespace host
