#include "platform/substrate/library_loader.h"

#include <dlfcn.h>

#include <algorithm>
#include <exception>
#include <optional>
#include <string_view>

#include "platform/foundation/file_manager.h"
#include "platform/foundation/property_list.h"
#include "platform/foundation/trace.h"

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

/// What the dynamic linker says, in one line and with the library's path as the device spells it.
std::string describeFailure(std::string text, const std::string& machinePath, const std::string& devicePath) {
  for (auto at = text.find(machinePath); at != std::string::npos;
       at = text.find(machinePath, at + devicePath.size())) {
    text.replace(at, machinePath.size(), devicePath);
  }
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

/// Loads the library and runs its constructors; the reason why not, or nothing once it is loaded.
std::string load(const std::string& devicePath) {
  const auto path = NSFileManager::defaultManager().resolve(devicePath);
  if (!path) return devicePath + ": no such file";
  try {
    if (::dlopen(path->c_str(), RTLD_NOW | RTLD_LOCAL)) return {};
    const char* reason = ::dlerror();
    return describeFailure(reason ? reason : "cannot be loaded", path->string(), devicePath);
  } catch (const std::exception& exception) {
    return devicePath + ": " + describeFailure(exception.what(), path->string(), devicePath);
  }
}

}  // namespace

std::vector<LoadedLibrary> loadLibrariesForBundle(const std::string& bundleIdentifier) {
  std::vector<LoadedLibrary> libraries;
  for (const std::string& name : NSFileManager::defaultManager().contentsOfDirectory(libraryFolder)) {
    if (!name.ends_with(libraryExtension)) continue;
    const std::string path = libraryFolder + name;
    const std::string stem = path.substr(0, path.size() - libraryExtension.size());
    const std::string filterPath = stem + std::string(filterExtension);
    const auto bundles = bundlesOfFilter(filterPath);
    if (!bundles) {
      libraries.push_back({path, filterPath + ": no readable filter"});
      continue;
    }
    if (std::find(bundles->begin(), bundles->end(), PropertyList(bundleIdentifier)) == bundles->end())
      continue;
    libraries.push_back({path, load(path)});
    if (libraries.back().error.empty()) trace("library-loaded", {{"path", path}});
  }
  return libraries;
}
