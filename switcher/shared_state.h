#pragma once

#include <memory>

#include "platform/coregraphics/cg_geometry.h"
#include "platform/uikit/ui_image.h"

/// Whether the show animation has run to its end. The one symbol that the library exports.
extern "C" bool finishedOpenAnimation;

namespace vistrel {

class CardScroller;
class CardDragger;
class NameDragger;

/// What the window, its strips and the start-up share. One of each per process, main thread only.

/// Null until the setup creates them, and then there for good; the name strip only where names were on at
/// setup.
extern CardScroller* switcherWindow;
extern CardDragger* iconStrip;
extern NameDragger* nameStrip;

extern bool switcherOpen;  ///< From the start of a show to the end of the dismissal.
extern bool iconPickMode;  ///< Opened without a finger that goes on dragging: a tap will pick.
extern bool hiddenForApp;  ///< Hidden while an application that wants no switcher is in front.

extern CGRect
    screenBounds;  ///< The screen, portrait, in points. Set, as the next two, by every load of preferences.
extern float screenWidth;  ///< The working width and height: swapped while the interface is in landscape.
extern float screenHeight;

/// The picture of the home screen that the peek shows. A launch clears it, the next show loads it afresh.
extern std::shared_ptr<UIImage> springBoardImage;

}  // namespace vistrel
