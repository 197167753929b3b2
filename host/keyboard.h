#pragma once

#include "platform/coregraphics/cg_geometry.h"
#include "platform/uikit/ui_orientation.h"

namespace host {

/// Lays the keyboard, if it is up, along the lower edge of an interface that stands so on a screen of this
/// portrait size.
void layOutKeyboard(CGSize screen, UIInterfaceOrientation orientation);

}  // namespace host
