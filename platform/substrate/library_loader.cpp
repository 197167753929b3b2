#include "platform/substrate/library_loader.h"

#include <dlfcn.h>
#include <link.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <optional>
#include <string_view>

#include "platform/foundation/file_manager.h"
#include "platform/foundation/property_list.h"
#include "platform/foundation/trace.h"
#include "platform/substrate/load_rehearsal.h"

namespace {

const std::string libraryFolder = "/Library/MobileSubstrate/DynamicLibraries/";
constexpr std::string_view libraryExtension = ".dylib";
constexpr std::string_view filterExtension = ".plist";
constexpr std::string_view filterKey = "Filter";
constexpr std::string_view bundlesKey = "Bundles";

/// The bundle identifiers that a library's filter names; nothing when the filter cannot be read.
std::optional<PropertyListArray> bundlesOfFilter(const std::string& filterPath) {
  const auto list = dictionaryWithContentsOfFile(filterPath);
  const PropertyList* entry = list ? find(*list, filterKey) : nullptr;
  auto* filter = entry ? entry->as<PropertyListDictionary>() : nullptr;
  if (!filter) return std::nullopt;
  const PropertyList* bundles = find(*filter, bundlesKey);
  if (!bundles) return PropertyListArray();  // A filter by other means, which we do not meet.
  auto* names = bundles->as<PropertyListArray>();
  return names ? std::optional(*names) : std::nullopt;
}

/// Whether the file is for the machine that this process runs on.
bool isForThisMachine(const std::filesystem::path& library) {
  const auto headOf = [](const std::filesystem::path& path) {
    ElfW(Ehdr) head{};
    std::ifstream(path, std::ios::binary).read(reinterpret_cast<char*>(&head), sizeof head);
    return head;
  };
  const auto own = headOf("/proc/self/exe"), its = headOf(library);
  return std::equal(own.e_ident, own.e_ident + EI_VERSION, its.e_ident) && own.e_machine == its.e_machine;
}

/// The cause in one line, with the library's path as the device spells it.
std::string describeFailure(std::string text, const std::string& machinePath, const std::string& devicePath) {
  for (auto at = text.find(machinePath); at != std::string::npos;
       at = text.find(machinePath, at + devicePath.size())) {
    text.replace(at, machinePath.size(), devicePath);
  }
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text.starts_with(devicePath) ? text : devicePath + ": " + text;
}

/// Loads the library and runs its constructors; the reason why not, or nothing once it is loaded.
std::string load(const std::string& devicePath) {
  const auto path = NSFileManager::defaultManager().resolve(devicePath);
  std::error_code error;
  if (!path || !std::filesystem::is_regular_file(*path, error)) return devicePath + ": no such file";
  if (::access(path->c_str(), R_OK) != 0) return devicePath + ": cannot be read";
  if (!isForThisMachine(*path)) return devicePath + ": no library for this machine";
  std::string failure = rehearseLoading(*path);
  if (failure.empty() && !::dlopen(path->c_str(), RTLD_NOW | RTLD_LOCAL)) {
    const char* reason = ::dlerror();
    failure = reason ? reason : "cannot be loaded";
  }
  return failure.empty() ? failure : describeFailure(failure, path->string(), devicePath);
}

/// The stems of all libraries and filters in the folder, by the libraries' paths; and whether those are
/// there.
std::map<std::string, bool> librariesInFolder() {
  std::map<std::string, bool> isThere;
  for (const std::string& name : NSFileManager::defaultManager().contentsOfDirectory(libraryFolder)) {
    const std::string path = libraryFolder + name;
    if (name.ends_with(libraryExtension)) isThere[path] = true;
    if (!name.ends_with(filterExtension)) continue;
    isThere.try_emplace(path.substr(0, path.size() - filterExtension.size()) + std::string(libraryExtension),
                        false);
  }
  return isThere;
}

}  // namespace

std::vector<LoadedLibrary> loadLibrariesForBundle(const std::string& bundleIdentifier) {
  std::vector<LoadedLibrary> libraries;
  for (const auto& [path, isThere] : librariesInFolder()) {
    const std::string stem = path.substr(0, path.size() - libraryExtension.size());
    const std::string filterPath = stem + std::string(filterExtension);
    const auto bundles = bundlesOfFilter(filterPath);
    if (!bundles) {
      if (isThere) libraries.push_back({path, filterPath + ": no readable filter"});
      continue;
    }
    if (std::find(bundles->begin(), bundles->end(), PropertyList(bundleIdentifier)) == bundles->end())
      continue;
    libraries.push_back({path, load(path)});
    if (libraries.back().error.empty()) trace("library-loaded", {{"path", path}});
  }
  return libraries;
}
