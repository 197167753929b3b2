// Draws the demo apps' bundles, the grab pattern and the wallpapers into a folder.

#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <span>
#include <string>

#include "tools/draw_resources/app_table.h"
#include "tools/draw_resources/info_plist.h"
#include "tools/draw_resources/output_root.h"
#include "tools/draw_resources/system_pictures.h"

namespace {

using namespace draw_resources;

constexpr int kExitFailed = 1;
constexpr int kExitUsage = 2;

/// A screen that a picture is made for; `suffix` goes between the picture's name and ".png".
struct ScreenSize {
  const char* suffix;
  double width;  // points
  double height;
  double scale;
};

constexpr std::array<ScreenSize, 3> kPhoneScreens{
    {{"", 320, 480, 1}, {"@2x", 320, 480, 2}, {"-568h@2x", 320, 568, 2}}};
constexpr ScreenSize kPadWallpaper{"~ipad", 768, 1024, 1};
constexpr ScreenSize kPadUpright{"-Portrait~ipad", 768, 1024, 1};
constexpr std::array<ScreenSize, 4> kSideways{{{"-Landscape", 480, 320, 1},
                                               {"-Landscape@2x", 480, 320, 2},
                                               {"-Landscape-568h@2x", 568, 320, 2},
                                               {"-Landscape~ipad", 1024, 768, 1}}};

struct IconSize {
  const char* file;
  double pixels;
};
constexpr std::array<IconSize, 3> kIconSizes{{{"Icon.png", 57}, {"Icon@2x.png", 114}, {"Icon-72.png", 72}}};

class Draughtsman {
 public:
  explicit Draughtsman(const OutputRoot& output) : output_(output) {}

  void drawApp(const App& app) const {
    const std::filesystem::path bundle = "Applications/" + std::string(app.name) + ".app";
    output_.write(bundle / "Info.plist", infoPlist(app));
    for (const auto& [file, pixels] : kIconSizes) {
      Canvas canvas(kIconPoints, kIconPoints, pixels / kIconPoints);
      drawAppIcon(canvas, app);
      output_.write(bundle / file, canvas.png());
    }
    const std::string picture = bundle / "Default";
    drawScreens(picture, app.drawScreen, kPhoneScreens);
    drawScreens(picture, app.drawScreen, {{kPadUpright}});
    if (app.orientations == Orientations::All) {
      drawScreens(picture, app.drawScreen, kSideways);
    }
  }

  void drawWallpaper(const std::string& picture, Painter painter) const {
    drawScreens(picture, painter, kPhoneScreens);
    drawScreens(picture, painter, {{kPadWallpaper}});
  }

  void drawGrabPattern(const std::string& picture) const {
    drawScreens(picture, drawGrabTile,
                {{{"", kGrabTilePoints, kGrabTilePoints, 1}, {"@2x", kGrabTilePoints, kGrabTilePoints, 2}}});
  }

 private:
  void drawScreens(const std::string& picture, Painter painter, std::span<const ScreenSize> sizes) const {
    for (const ScreenSize& size : sizes) {
      Canvas canvas(size.width, size.height, size.scale);
      painter(canvas);
      output_.write(picture + size.suffix + ".png", canvas.png());
    }
  }

  const OutputRoot& output_;  // owned by main
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 || argv[1][0] == '\0' || argv[1][0] == '-') {
    std::fprintf(stderr, "draw_resources: bad arguments; usage: draw_resources OUTPUT_ROOT\n");
    return kExitUsage;
  }
  try {
    requireFont();
    const OutputRoot output(argv[1]);
    const Draughtsman draughtsman(output);
    for (const App& app : apps()) {
      draughtsman.drawApp(app);
    }
    draughtsman.drawGrabPattern("Library/Vistrel/VistrelGrab");
    draughtsman.drawWallpaper("Library/Wallpaper/Home", drawHomeWallpaper);
    draughtsman.drawWallpaper("Library/Wallpaper/Lock", drawLockWallpaper);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "draw_resources: %s\n", error.what());
    return kExitFailed;
  }
  return 0;
}
