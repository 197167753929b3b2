#include "platform/substrate/library_loader.h"

#include <dlfcn.h>
#include <link.h>
#include <sys/stat.h>

#include "platform/foundation/property_list.h"
#include "platform/foundation/trace.h"
#include "platform/substrate/load_rehearsal.h"
#include "tests/support/temporary_root.h"

namespace {

const std::string folder = "/Library/MobileSubstrate/DynamicLibraries/";
const std::string springBoard = "com.apple.springboard";

class LibraryLoader : public TemporaryRoot {
 protected:
  void install(const std::string& name, const NSData& library, const std::optional<PropertyList>& bundles) {
    const std::string path = folder + name;
    ASSERT_TRUE(files().write(path + ".dylib", library, NSFileManager::Writing::Plain));
    if (!bundles) return;
    ASSERT_TRUE(
        writeDictionaryToFile({{"Filter", PropertyListDictionary{{"Bundles", *bundles}}}}, path + ".plist"));
  }
  static NSData fileOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return NSData(std::istreambuf_iterator<char>(stream), {});
  }
  /// The bytes of some library that the dynamic linker accepts: one that this process has loaded already.
  static NSData loadableLibrary() {
    link_map* map = nullptr;
    void* handle = ::dlopen("libplist-2.0.so.3", RTLD_NOW);
    EXPECT_TRUE(handle && ::dlinfo(handle, RTLD_DI_LINKMAP, &map) == 0);
    return fileOf(map->l_name);
  }
};

TEST_F(LibraryLoader, LoadsByFilterInOrderOfNamesAndSaysWhatFailed) {
  const PropertyListArray here = {"com.example.other", springBoard};
  const NSData library = loadableLibrary();
  install("B", library, here);
  install("A", library, here);
  install("C-elsewhere", library, PropertyListArray{"com.example.other"});
  install("D-damaged", bytes("no library"), here);
  install("E-unfiltered", library, std::nullopt);
  install("F-misfiltered", library, springBoard);
  NSData foreign = library;
  foreign[EI_CLASS] = ELFCLASS32;
  install("G-foreign", foreign, here);
  install("H-cut", NSData(library.begin(), library.begin() + 4096), here);
  install("I-throwing", fileOf(THROWING_LIBRARY), here);
  install("J-piped", {}, here);
  std::filesystem::remove(root() / (folder + "J-piped.dylib").substr(1));
  ASSERT_EQ(mkfifo((root() / (folder + "J-piped.dylib").substr(1)).c_str(), 0600), 0);
  install("K", library, here);
  install("L-missing", {}, here);
  std::filesystem::remove(root() / (folder + "L-missing.dylib").substr(1));
  std::string traced;
  setTraceSink([&](std::string_view event, const TraceFields& fields) {
    traced += std::string(event) + " " + std::get<std::string>(fields[0].second) + ";";
  });

  const auto libraries = loadLibrariesForBundle(springBoard);
  setTraceSink({});

  EXPECT_EQ(traced, "library-loaded " + folder + "A.dylib;library-loaded " + folder +
                        "B.dylib;library-loaded " + folder + "K.dylib;");
  const std::pair<const char*, bool> expected[] = {{"A", true},
                                                   {"B", true},
                                                   {"D-damaged", false},
                                                   {"E-unfiltered", false},
                                                   {"F-misfiltered", false},
                                                   {"G-foreign", false},
                                                   {"H-cut", false},
                                                   {"I-throwing", false},
                                                   {"J-piped", false},
                                                   {"K", true},
                                                   {"L-missing", false}};
  ASSERT_EQ(libraries.size(), std::size(expected));
  for (std::size_t i = 0; i < libraries.size(); ++i) {
    const auto& [path, error] = libraries[i];
    EXPECT_EQ(path, folder + expected[i].first + ".dylib");
    EXPECT_EQ(error.empty(), expected[i].second) << error;
    EXPECT_EQ(error.find(root().string()), std::string::npos) << error;
    EXPECT_EQ(std::count(error.begin(), error.end(), '\n'), 0) << error;
  }
}

TEST(LoadRehearsal, WaitsNeitherForEverNorForProcessesThatALibraryStarts) {
  EXPECT_EQ(rehearseLoading(STARTING_LIBRARY), "");
  setenv("STAYS", "", 1);
  EXPECT_EQ(rehearseLoading(STARTING_LIBRARY, std::chrono::milliseconds(0)), "does not finish loading");
}

}  // namespace
