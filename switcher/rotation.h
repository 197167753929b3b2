#pragma once

#include "platform/uikit/ui_orientation.h"
#include "platform/uikit/ui_view.h"

namespace vistrel {

/// Turns the window or a strip to the status bar's orientation after an interface rotation from `from`, and
/// sets the working screen size. Between portrait and landscape it turns by a quarter; otherwise only the
/// size is set, to the portrait one.
void reorient(UIView& receiver, UIInterfaceOrientation from);

/// True for the four interface orientations.
bool isInterfaceOrientation(int orientation);

}  // namespace vistrel
