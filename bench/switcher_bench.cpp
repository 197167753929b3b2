// The switcher's own work beside what it cannot do without: a frame, a picture file, an encoder.

#include <cstdio>
// jpeglib.h needs what cstdio declares.
#include <jpeglib.h>

#include <cstdlib>
#include <memory>

#include "bench/figure.h"
#include "bench/phone.h"
#include "platform/coregraphics/image_codec.h"
#include "platform/foundation/file_manager.h"
#include "platform/uikit/display.h"
#include "startup/home_screen_capture.h"
#include "strips/card_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/device_paths.h"
#include "switcher/shared_state.h"

namespace bench {
namespace {

using namespace vistrel;
using namespace vistrel::test;

/// The switcher is closed, and the next frame has all of the screen to draw.
void changeScreen(Phone& phone) {
  phone.close();
  UIGetScreenImage();
  phone.nudgeWallpaper();
}

Works showing() {
  auto phone = std::make_shared<Phone>();
  const NSData cached = NSFileManager::defaultManager().contents(homeScreenPicturePath).value();
  return {[=] {
            changeScreen(*phone);
            return secondsOf([] { switcherWindow->showAtPoint(middle); });
          },
          [=] {
            changeScreen(*phone);
            return secondsOfFrame() + secondsOf([&] { decodeImage(cached); });
          }};
}

/// A finger that wavers at `y` over the middle icon, or above or below it.
Works moving(float y) {
  constexpr int moves = 1000;
  constexpr float waver = 0.25f;  // Points.
  auto phone = std::make_shared<Phone>();
  phone->openOnMiddleIcon();
  const float x = iconStrip->icons()[testBundles.size() / 2]->center().x;
  phone->device().move(x, y);
  phone->device().settle();
  return {[=] {
            const double seconds = secondsOf([&] {
              for (int i = 0; i < moves; ++i) phone->device().move(i % 2 == 0 ? x + waver : x, y);
            });
            return seconds / moves;
          },
          [=] {
            phone->nudgeBands();
            return secondsOfFrame();
          }};
}

/// What the library takes to encode a screen's picture as the capture does: at its best, no colour sampled
/// more coarsely than brightness.
void encodeByTheLibrary(const CGImage& picture) {
  jpeg_error_mgr errors;
  jpeg_compress_struct codec{};
  codec.err = jpeg_std_error(&errors);
  jpeg_create_compress(&codec);
  unsigned char* data = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&codec, &data, &size);
  codec.image_width = JDIMENSION(picture.width());
  codec.image_height = JDIMENSION(picture.height());
  codec.input_components = int(picture.format().bytesPerPixel());
  codec.in_color_space = JCS_EXT_BGRX;
  jpeg_set_defaults(&codec);
  jpeg_set_quality(&codec, 100, TRUE);
  codec.comp_info[0].h_samp_factor = codec.comp_info[0].v_samp_factor = 1;
  jpeg_start_compress(&codec, TRUE);
  while (codec.next_scanline < codec.image_height) {
    auto* row = const_cast<JSAMPROW>(picture.row(int(codec.next_scanline)));  // Only read.
    jpeg_write_scanlines(&codec, &row, 1);
  }
  jpeg_finish_compress(&codec);
  jpeg_destroy_compress(&codec);
  std::free(data);
}

Works capturing() {
  auto phone = std::make_shared<Phone>();
  return {[=] {
            changeScreen(*phone);
            return secondsOf([] { HomeScreenCapture().save(); });
          },
          [=] {
            changeScreen(*phone);
            return secondsOf([] { encodeByTheLibrary(*UIGetScreenImage()); });
          }};
}

}  // namespace

void addSwitcherFigures() {
  constexpr double partOfFrame = 1.0 / 200;
  constexpr float besideIcons = middle + 50;  // Off the strip, and not yet at the peek.
  addFigure("switcher/show", "a frame and decoding the cached picture", atMost(1.2), showing);
  addFigure("switcher/move/on-icon", "a frame", atMost(partOfFrame), [] { return moving(middle); });
  addFigure("switcher/move/beside-icons", "a frame", atMost(partOfFrame), [] { return moving(besideIcons); });
  addFigure("switcher/capture", "a frame and encoding it", atMost(1.1), capturing);
}

}  // namespace bench
