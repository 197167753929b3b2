#include "startup/setup.h"

#include <vector>

#include "platform/activator/activator.h"
#include "platform/foundation/darwin_notification_center.h"
#include "platform/foundation/file_manager.h"
#include "platform/uikit/ui_alert_view.h"
#include "prefs/settings.h"
#include "startup/rotation_events.h"
#include "startup/vistrel_listener.h"
#include "strips/card_dragger.h"
#include "strips/name_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/device_paths.h"
#include "switcher/layout.h"
#include "switcher/load_preferences.h"
#include "switcher/shared_state.h"
#include "switcher/window_level.h"

namespace vistrel {
namespace {

constexpr const char* prefsChangedNotification = "com.zantric.vistrel.prefsChanged";
constexpr const char* listenerName = "com.zantric.vistrel.listener";
constexpr const char* activatorPresenceFile = "/var/lib/dpkg/info/libactivator.list";
constexpr float gapAboveIconStrip = 10;

bool activatorWarningShown = false;

/// Keeps an object for the life of the process. Nothing takes it down at exit, when the frameworks it stands
/// on may already be gone.
void keepForGood(id object) {
  static auto* kept = new std::vector<id>;
  kept->push_back(std::move(object));
}

void observePreferences() {
  CFNotificationCenterAddObserver(CFNotificationCenterGetDarwinNotifyCenter(), nullptr, prefsChangedCallback,
                                  prefsChangedNotification, CFNotificationSuspensionBehavior::Coalesce);
}

void createWindowAndIconStrip() {
  auto window = std::make_shared<CardScroller>(restingWindowFrame());
  keepForGood(window);
  switcherWindow = window.get();
  auto strip = std::make_shared<CardDragger>(restingIconStripFrame());
  iconStrip = strip.get();

  window->makeKeyAndVisible();
  window->setWindowLevel(restingLevel);
  window->setUserInteractionEnabled(true);
  window->setBackgroundColor(UIColor::colorWithPatternImage(UIImage::imageWithContentsOfFile(grabImagePath)));
  strip->setBackgroundColor(UIColor::clearColor());
  strip->setUserInteractionEnabled(true);
  window->addSubview(strip);
}

void createNameStrip() {
  auto strip = std::make_shared<NameDragger>(restingIconStripFrame());
  nameStrip = strip.get();
  strip->setAlpha(0);
  strip->setBackgroundColor(UIColor::clearColor());
  switcherWindow->addSubview(strip);

  const auto [origin, size] = iconStrip->frame();
  const float middle = screenHeight * 0.5f - halfIconStripHeight;
  if (settings.appNamePosition == word::top) {
    strip->setFrame(
        CGRectMake(origin.x, middle - size.height - gapAboveIconStrip, screenWidth, nameStripHeight));
  } else if (settings.appNamePosition == word::bottom) {
    strip->setFrame(CGRectMake(origin.x, middle + size.height, screenWidth, nameStripHeight));
  }
}

void showActivatorWarning(SBAwayView& delegate) {
  auto alert = std::make_shared<UIAlertView>("Vistrel Warning",
                                             "You have set Vistrel to only be activated via Activator, but "
                                             "you seem not to have Activator installed.",
                                             &delegate, "OK", std::vector<std::string>());
  alert->show();
  activatorWarningShown = true;
}

void connectActivator(SBAwayView& awayView) {
  if (NSFileManager::defaultManager().fileExists(activatorPresenceFile)) {
    LAActivator::sharedInstance().registerListener(std::make_shared<VistrelListener>(), listenerName);
  } else if (settings.activatorOnly && !activatorWarningShown) {
    showActivatorWarning(awayView);
  }
}

void buildSwitcher(SBAwayView& awayView) {
  createWindowAndIconStrip();
  if (settings.appNames) createNameStrip();
  iconStrip->shuffleIcons();
  observeRotations();
  connectActivator(awayView);
}

}  // namespace

void setUpSwitcher(SBAwayView& awayView) {
  if (!prefsLoaded) loadPreferences();
  if (settings.enabled) {
    observePreferences();
    if (!switcherWindow) buildSwitcher(awayView);
  }
  reassertWindowLevel();
}

}  // namespace vistrel
