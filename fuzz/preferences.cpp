// The two preference files, read by a running device: then the switcher opens and closes as it always does.

#include <fstream>

#include "fuzz/promise.h"
#include "platform/uikit/display.h"
#include "prefs/preference_files.h"
#include "prefs/settings.h"
#include "strips/card_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/layout.h"
#include "switcher/shared_state.h"
#include "tests/support/geometry.h"
#include "tests/support/test_device.h"

namespace {

using namespace vistrel;

constexpr std::string_view divider = "\n--\n";  // Behind it begins the apps file.
constexpr float splitPoint = 200;
constexpr std::size_t strips = 2;                // Icons and names.
constexpr double instant = 0.1, longEnough = 3;  // Seconds: into an animation, and beyond it.

/// One device for all inputs, with names and two applications to switch between.
test::TestDevice& device() {
  static test::TestDevice device(
      {.model = "iphone-3gs", .preferences = {{"appNames", true}, {"lsEnabled", true}}, .recents = {}});
  return device;
}

/// What an input leaves behind, and the next one is not to find.
void forgetSettings() {
  static const NSStringArrayRef recents = [] {
    for (const char* bundle : {"com.example.one", "com.example.two"}) device().launch(bundle);
    device().home();
    return switcherWindow->recentIDs();
  }();
  settings = Settings();
  disabledApps.clear();
  switcherWindow->setRecentIDs(recents);
}

void writeFile(const char* devicePath, std::string_view contents) {
  std::ofstream(device().pathOf(devicePath), std::ios::binary).write(contents.data(), std::ssize(contents));
}

void checkGeometry(const UIView& view) {
  fuzz::require(test::isFinite(view.frame()), "every frame is finite");
  for (const auto& subview : view.subviews()) checkGeometry(*subview);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(bytes), size);
  const std::size_t middle = input.find(divider);
  device();
  forgetSettings();
  writeFile(preferencesPath, input.substr(0, middle));
  writeFile(appsPath, middle == input.npos ? "" : input.substr(middle + divider.size()));
  device().postChange();
  checkGeometry(*switcherWindow);

  switcherWindow->showAtPoint(splitPoint);
  fuzz::require(switcherOpen, "an unlocked device shows the switcher");
  device().pump(instant);
  UIGetScreenImage();
  checkGeometry(*switcherWindow);
  device().pump(longEnough);
  switcherWindow->hide();
  device().pump(instant);
  UIGetScreenImage();
  device().pump(longEnough);
  checkGeometry(*switcherWindow);
  fuzz::require(!switcherOpen && test::liesAt(*switcherWindow, restingWindowFrame()),
                "a closed switcher parks");
  fuzz::require(switcherWindow->subviews().size() == strips, "a closed switcher has its strips alone");
  return 0;
}
