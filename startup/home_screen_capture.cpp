#include "startup/home_screen_capture.h"

#include "platform/foundation/file_manager.h"
#include "platform/uikit/display.h"
#include "platform/uikit/ui_image.h"
#include "prefs/settings.h"
#include "switcher/device_paths.h"
#include "switcher/shared_state.h"

namespace vistrel {

HomeScreenCapture::HomeScreenCapture() {
  if (!settings.swipeActionEnabled) return;
  springBoardImage = nullptr;
  picture_ = UIGetScreenImage();
}

void HomeScreenCapture::save() const {
  if (!picture_) return;
  constexpr float quality = 1.0f;
  NSData jpeg = UIImageJPEGRepresentation(UIImage::imageWithCGImage(picture_), quality);
  if (jpeg.empty()) return;
  NSFileManager::defaultManager().write(homeScreenPicturePath, jpeg, NSFileManager::Writing::Plain);
}

}  // namespace vistrel
