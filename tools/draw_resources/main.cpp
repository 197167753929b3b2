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

constexpr int exitFailed = 1;
constexpr int exitUsage = 2;

/// A screen that a picture is made for; `suffix` goes between the picture's name and ".png".
struct ScreenSize {
  const char* suffix;
  double width;  // points
  double height;
  double scale;
};

constexpr std::array<ScreenSize, 3> phoneScreens{
    {{"", 320, 480, 1}, {"@2x", 320, 480, 2}, {"-568h@2x", 320, 568, 2}}};
constexpr ScreenSize padWallpaper{"~ipad", 768, 1024, 1};
constexpr ScreenSize padUpright{"-Portrait~ipad", 768, 1024, 1};
constexpr std::array<ScreenSize, 4> sideways{{{"-Landscape", 480, 320, 1},
                                              {"-Landscape@2x", 480, 320, 2},
                                              {"-Landscape-568h@2x", 568, 320, 2},
                                              {"-Landscape~ipad", 1024, 768, 1}}};

struct IconSize {
  const char* file;
  double pixels;
};
constexpr std::array<IconSize, 3> iconSizes{{{"Icon.png", 57}, {"Icon@2x.png", 114}, {"Icon-72.png", 72}}};

class Draughtsman {
 public:
  explicit Draughtsman(const OutputRoot& output) : output_(output) {}

  void drawApp(const App& app) const {
    const std::filesystem::path bundle = "Applications/" + std::string(app.name) + ".app";
    output_.write(bundle / "Info.plist", infoPlist(app));
    for (const auto& [file, pixels] : iconSizes) {
      Canvas canvas(iconPoints, iconPoints, pixels / iconPoints);
      drawAppIcon(canvas, app);
      output_.write(bundle / file, canvas.png());
    }
    const std::string picture = bundle / "Default";
    drawScreens(picture, app.drawScreen, phoneScreens);
    drawScreens(picture, app.drawScreen, {{padUpright}});
    if (app.orientations == Orientations::All) {
      drawScreens(picture, app.drawScreen, sideways);
    }
  }

  void drawWallpaper(const std::string& picture, Painter painter) const {
    drawScreens(picture, painter, phoneScreens);
    drawScreens(picture, painter, {{padWallpaper}});
  }

  void drawGrabPattern(const std::string& picture) const {
    drawScreens(picture, drawGrabTile,
                {{{"", grabTilePoints, grabTilePoints, 1}, {"@2x", grabTilePoints, grabTilePoints, 2}}});
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
    return exitUsage;
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
    return exitFailed;
  }
  return 0;
}
