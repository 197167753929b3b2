#include "tools/draw_resources/app_table.h"

#include <array>

#include "tools/draw_resources/icons.h"
#include "tools/draw_resources/screens.h"

namespace draw_resources {
namespace {

constexpr auto onlyUpright = Orientations::PortraitOnly;
constexpr auto everyWay = Orientations::All;

constexpr std::array<App, 12> appTable{{
    {"Calendar", "com.example.calendar", onlyUpright, drawCalendarIcon, drawCalendarScreen},
    {"Camera", "com.example.camera", onlyUpright, drawCameraIcon, drawCameraScreen},
    {"Clock", "com.example.clock", onlyUpright, drawClockIcon, drawClockScreen},
    {"Mail", "com.example.mail", onlyUpright, drawMailIcon, drawMailScreen},
    {"Maps", "com.example.maps", everyWay, drawMapsIcon, drawMapsScreen},
    {"Messages", "com.example.messages", onlyUpright, drawMessagesIcon, drawMessagesScreen},
    {"Music", "com.example.music", everyWay, drawMusicIcon, drawMusicScreen},
    {"Notes", "com.example.notes", onlyUpright, drawNotesIcon, drawNotesScreen},
    {"Phone", "com.example.phone", onlyUpright, drawPhoneIcon, drawPhoneScreen},
    {"Photos", "com.example.photos", everyWay, drawPhotosIcon, drawPhotosScreen},
    {"Settings", "com.example.settings", onlyUpright, drawSettingsIcon, drawSettingsScreen},
    {"Weather", "com.example.weather", onlyUpright, drawWeatherIcon, drawWeatherScreen},
}};

}  // namespace

std::span<const App> apps() { return appTable; }

void drawAppIcon(Canvas& canvas, const App& app) {
  constexpr double cornerRadius = 10;
  const Rect face{0, 0, iconPoints, iconPoints};
  canvas.roundRect(face, cornerRadius).clip();
  {
    const Canvas::Saved saved(canvas);
    app.drawIcon(canvas);
  }
  // A soft light from above, a bright upper rim, a dark lower one.
  canvas.moveTo({0, 0}).lineTo({iconPoints, 0}).lineTo({iconPoints, 20});
  canvas.curveTo({40, 31}, {17, 31}, {0, 20})
      .close()
      .fill(Paint::vertical({0, 0, 1, 29}, white(0.28), white(0.05)));
  canvas.roundRect(face.inset(0.5, 0.5), cornerRadius - 0.5)
      .stroke(
          Paint::vertical(face, {{0, white(0.5)}, {0.3, white(0.08)}, {0.7, black(0.05)}, {1, black(0.35)}}),
          1);
}

}  // namespace draw_resources
