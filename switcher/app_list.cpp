#include <algorithm>

#include "prefs/settings.h"
#include "strips/card_dragger.h"
#include "switcher/card_scroller.h"
#include "switcher/shared_state.h"
#include "switcher/spring_board.h"

namespace vistrel {
namespace {

constexpr std::size_t maximumRecentApps = 5;

/// System parts that SpringBoard counts among its applications but nobody would switch to.
constexpr const char* neverOffered[] = {
    "com.apple.AdSheet",   "com.apple.DemoApp",   "com.apple.iphoneos.iPodOut",
    "com.apple.TrustMe",   "com.apple.webapp",    "com.apple.WebSheet",
    "com.apple.nike",      "com.apple.NewsStand", "com.apple.Newsstand",
    "com.apple.newsstand", "com.apple.FieldTest", "com.apple.fieldtest",
};

NSStringArray offeredRecents() {
  NSStringArray identifiers = recentDisplayIdentifiers();
  for (const char* excluded : neverOffered) std::erase(identifiers, excluded);
  identifiers.resize(std::min(identifiers.size(), maximumRecentApps));
  return identifiers;
}

}  // namespace

void CardScroller::removeCardWithBundleID(const std::string&) { rebuildAppList(); }

void CardScroller::setImagesForBundle(const std::string&) { rebuildAppList(); }

void CardScroller::rebuildAppList() {
  setRecentIDs(settings.favouritesEnabled ? favouriteApps
                                          : std::make_shared<const NSStringArray>(offeredRecents()));
  if (iconStrip) iconStrip->shuffleIcons();
}

void CardScroller::openAppAtIndex(long index) {
  if (index < 0 || index >= static_cast<long>(appCount())) return;
  // By value: opening may rebuild the list that the identifier stands in.
  const std::string identifier = (*recentIDs_)[static_cast<std::size_t>(index)];
  openApplication(identifier);
}

}  // namespace vistrel
