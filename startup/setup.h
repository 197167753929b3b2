#pragma once

#include "platform/springboard/sb_away_view.h"

namespace vistrel {

/// Builds the switcher, once, when SpringBoard builds its lock screen's view: preferences, window, strips,
/// notification, Activator. `awayView` is the view being built, the delegate of the one warning that this may
/// show. Later lock screens only put the window back on top.
void setUpSwitcher(SBAwayView& awayView);

}  // namespace vistrel
