#pragma once

#include <string>
#include <vector>

/// The injection framework's loader: brings add-on libraries into the running process.

/// What became of one library.
struct LoadedLibrary {
  std::string path;   ///< On the device: "/Library/MobileSubstrate/DynamicLibraries/NAME.dylib".
  std::string error;  ///< Empty when it was loaded; otherwise one line with the file and the cause.
};

/// Loads, in order of their names, the libraries of /Library/MobileSubstrate/DynamicLibraries whose filter
/// property list (NAME.plist beside NAME.dylib: Filter > Bundles) names `bundleIdentifier`. A library without
/// a readable filter and a filter for the bundle without its library are reported as errors. Their
/// constructors run before this returns. Each loaded one is traced as "library-loaded" {path}. Libraries are
/// never unloaded.
std::vector<LoadedLibrary> loadLibrariesForBundle(const std::string& bundleIdentifier);
