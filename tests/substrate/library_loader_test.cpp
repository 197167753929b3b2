#include "platform/substrate/library_loader.h"

#include <dlfcn.h>
#include <link.h>

#include "platform/foundation/property_list.h"
#include "platform/foundation/trace.h"
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
  /// The bytes of some library that the dynamic linker accepts: one that this process has loaded already.
  static NSData loadableLibrary() {
    link_map* map = nullptr;
    void* handle = ::dlopen("libplist-2.0.so.3", RTLD_NOW);
    EXPECT_TRUE(handle && ::dlinfo(handle, RTLD_DI_LINKMAP, &map) == 0);
    std::ifstream stream(map->l_name, std::ios::binary);
    return NSData(std::istreambuf_iterator<char>(stream), {});
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
  std::string traced;
  setTraceSink([&](std::string_view event, const TraceFields& fields) {
    traced += std::string(event) + " " + std::get<std::string>(fields[0].second) + ";";
  });

  const auto libraries = loadLibrariesForBundle(springBoard);
  setTraceSink({});

  EXPECT_EQ(traced, "library-loaded " + folder + "A.dylib;library-loaded " + folder + "B.dylib;");
  const std::pair<const char*, bool> expected[] = {
      {"A", true}, {"B", true}, {"D-damaged", false}, {"E-unfiltered", false}, {"F-misfiltered", false}};
  ASSERT_EQ(libraries.size(), std::size(expected));
  for (std::size_t i = 0; i < libraries.size(); ++i) {
    const auto& [path, error] = libraries[i];
    EXPECT_EQ(path, folder + expected[i].first + ".dylib");
    EXPECT_EQ(error.empty(), expected[i].second) << error;
    EXPECT_EQ(error.find(root().string()), std::string::npos) << error;
  }
}

}  // namespace
