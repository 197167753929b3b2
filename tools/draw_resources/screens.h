#pragma once

#include "tools/draw_resources/canvas.h"

namespace draw_resources {

// Each app's screen, laid out for whatever size the canvas has; its top 20 points are left to the status bar.
void drawCalendarScreen(Canvas& canvas);
void drawCameraScreen(Canvas& canvas);
void drawClockScreen(Canvas& canvas);
void drawMailScreen(Canvas& canvas);
void drawMapsScreen(Canvas& canvas);
void drawMessagesScreen(Canvas& canvas);
void drawMusicScreen(Canvas& canvas);
void drawNotesScreen(Canvas& canvas);
void drawPhoneScreen(Canvas& canvas);
void drawPhotosScreen(Canvas& canvas);
void drawSettingsScreen(Canvas& canvas);
void drawWeatherScreen(Canvas& canvas);

}  // namespace draw_resources
