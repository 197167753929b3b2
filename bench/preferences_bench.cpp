// Loading the preferences, beside what parsing the same two files costs.

#include <plist/plist.h>

#include <memory>

#include "bench/figure.h"
#include "platform/foundation/file_manager.h"
#include "prefs/preference_files.h"
#include "switcher/load_preferences.h"
#include "tests/support/test_device.h"

namespace bench {
namespace {

using namespace vistrel;
using namespace vistrel::test;

void parse(const NSData& data) {
  plist_t list = nullptr;
  plist_from_memory(reinterpret_cast<const char*>(data.data()), std::uint32_t(data.size()), &list);
  plist_free(list);
}

/// The files as the device writes them: the defaults, and a pane's list of applications.
Works loading() {
  auto device =
      std::make_shared<TestDevice>(DeviceSetup{.disabledApps = testBundles, .recents = testBundles});
  const auto& files = NSFileManager::defaultManager();
  const NSData preferences = files.contents(preferencesPath).value(), apps = files.contents(appsPath).value();
  return {[device] { return secondsOf(loadPreferences); }, timed([=] {
            parse(preferences);
            parse(apps);
          })};
}

}  // namespace

void addPreferencesFigures() { addFigure("preferences/load", "parsing the same bytes", atMost(2), loading); }

}  // namespace bench
