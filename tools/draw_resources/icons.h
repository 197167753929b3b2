#pragma once

#include "tools/draw_resources/canvas.h"

namespace draw_resources {

// The motif of each icon, on a square of 57 points that it fills to the corners.
void drawCalendarIcon(Canvas& canvas);
void drawCameraIcon(Canvas& canvas);
void drawClockIcon(Canvas& canvas);
void drawMailIcon(Canvas& canvas);
void drawMapsIcon(Canvas& canvas);
void drawMessagesIcon(Canvas& canvas);
void drawMusicIcon(Canvas& canvas);
void drawNotesIcon(Canvas& canvas);
void drawPhoneIcon(Canvas& canvas);
void drawPhotosIcon(Canvas& canvas);
void drawSettingsIcon(Canvas& canvas);
void drawWeatherIcon(Canvas& canvas);

}  // namespace draw_resources
