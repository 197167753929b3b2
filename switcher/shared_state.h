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

/// Null until the setup creates them, and then there for good; the name strip only where names were on at setup.
extern CardScroller* switcherWindow;
extern CardDragger* iconStrip;
extern NameDragger* nameStrip;

extern bool switcherOpen;  ///< From the start of a show to the end of the dismissal.
extern bool iconPickMode;  ///< Opened without a finger that goes on dragging: a tap will pick.
extern bool hiddenForApp;  ///< Hidden while an application that wants no switcher is in front.

extern CGRect screenBounds;  ///< The screen, portrait, in points.
extern float screenWidth;    ///< The working width and height: swapped while the interface is in landscape.
extern float screenHeight;

/// The picture of the home screen that the peek shows; null until a show loads it.
extern std::shared_ptr<UIImage> springBoardImage;

/// The x origin of the parked window: only its grab strip stays on screen.
float restingX();

/// The main screen's scale, its integer part; 1 for a screen that has none.
float deviceScale();

/// Keeps an object for the life of the process. Nothing takes it down at exit, when the frameworks it stands on may
/// already be gone.
void keepForGood(id object);

}  // namespace vistrel
