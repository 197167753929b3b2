#include "tools/draw_resources/app_table.h"

#include <array>

#include "tools/draw_resources/icons.h"
#include "tools/draw_resources/screens.h"

namespace draw_resources {

namespace {

constexpr auto kOnlyUpright = Orientations::PortraitOnly;
constexpr auto kEveryWay = Orientations::All;

constexpr std::array<App, 12> kApps{{
    {"Calendar", "com.example.calendar", kOnlyUpright, drawCalendarIcon, drawCalendarScreen},
    {"Camera", "com.example.camera", kOnlyUpright, drawCameraIcon, drawCameraScreen},
    {"Clock", "com.example.clock", kOnlyUpright, drawClockIcon, drawClockScreen},
    {"Mail", "com.example.mail", kOnlyUpright, drawMailIcon, drawMailScreen},
    {"Maps", "com.example.maps", kEveryWay, drawMapsIcon, drawMapsScreen},
    {"Messages", "com.example.messages", kOnlyUpright, drawMessagesIcon, drawMessagesScreen},
    {"Music", "com.example.music", kEveryWay, drawMusicIcon, drawMusicScreen},
    {"Notes", "com.example.notes", kOnlyUpright, drawNotesIcon, drawNotesScreen},
    {"Phone", "com.example.phone", kOnlyUpright, drawPhoneIcon, drawPhoneScreen},
    {"Photos", "com.example.photos", kEveryWay, drawPhotosIcon, drawPhotosScreen},
    {"Settings", "com.example.settings", kOnlyUpright, drawSettingsIcon, drawSettingsScreen},
    {"Weather", "com.example.weather", kOnlyUpright, drawWeatherIcon, drawWeatherScreen},
}};

}  // namespace

std::span<const App> apps() { return kApps; }

void drawAppIcon(Canvas& canvas, const App& app) {
  constexpr double kCornerRadius = 10;
  const Rect face{0, 0, kIconPoints, kIconPoints};
  canvas.roundRect(face, kCornerRadius).clip();
  {
    const Canvas::Saved saved(canvas);
    app.drawIcon(canvas);
  }
  // A soft light from above, a bright upper rim, a dark lower one.
  canvas.moveTo({0, 0}).lineTo({kIconPoints, 0}).lineTo({kIconPoints, 20});
  canvas.curveTo({40, 31}, {17, 31}, {0, 20})
      .close()
      .fill(Paint::vertical({0, 0, 1, 29}, white(0.28), white(0.05)));
  canvas.roundRect(face.inset(0.5, 0.5), kCornerRadius - 0.5)
      .stroke(
          Paint::vertical(face, {{0, white(0.5)}, {0.3, white(0.08)}, {0.7, black(0.05)}, {1, black(0.35)}}),
          1);
}

}  // namespace draw_resources
