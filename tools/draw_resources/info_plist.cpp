#include "tools/draw_resources/info_plist.h"

#include <vector>

namespace draw_resources {
namespace {

// The values here are all our own and need no escaping.
std::string element(std::string_view tag, std::string_view content) {
  std::string text = "\t<";
  text.append(tag).append(">").append(content).append("</").append(tag).append(">\n");
  return text;
}

std::string stringEntry(std::string_view key, std::string_view value) {
  return element("key", key) + element("string", value);
}

std::string arrayEntry(std::string_view key, std::string_view tag,
                       const std::vector<std::string_view>& values) {
  std::string text = element("key", key) + "\t<array>\n";
  for (const std::string_view value : values) {
    text.append("\t").append(element(tag, value));
  }
  return text + "\t</array>\n";
}

std::vector<std::string_view> orientationNames(Orientations orientations) {
  if (orientations == Orientations::PortraitOnly) {
    return {"UIInterfaceOrientationPortrait"};
  }
  return {"UIInterfaceOrientationPortrait", "UIInterfaceOrientationPortraitUpsideDown",
          "UIInterfaceOrientationLandscapeLeft", "UIInterfaceOrientationLandscapeRight"};
}

}  // namespace

std::string infoPlist(const App& app) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
         "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
         "<plist version=\"1.0\">\n<dict>\n" +
         stringEntry("CFBundleDisplayName", app.name) + stringEntry("CFBundleExecutable", app.name) +
         arrayEntry("CFBundleIconFiles", "string", {"Icon.png", "Icon@2x.png", "Icon-72.png"}) +
         stringEntry("CFBundleIdentifier", app.identifier) + stringEntry("CFBundleName", app.name) +
         stringEntry("CFBundlePackageType", "APPL") + stringEntry("CFBundleVersion", "1.0") +
         arrayEntry("UIDeviceFamily", "integer", {"1", "2"}) + element("key", "UIPrerenderedIcon") +
         "\t<true/>\n" +
         arrayEntry("UISupportedInterfaceOrientations", "string", orientationNames(app.orientations)) +
         "</dict>\n</plist>\n";
}

}  // namespace draw_resources
