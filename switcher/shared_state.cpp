#include "switcher/shared_state.h"

bool finishedOpenAnimation = false;

namespace vistrel {

CardScroller* switcherWindow = nullptr;
CardDragger* iconStrip = nullptr;
NameDragger* nameStrip = nullptr;
bool switcherOpen = false;
bool iconPickMode = false;
bool hiddenForApp = false;
CGRect screenBounds;
float screenWidth = 0;
float screenHeight = 0;
std::shared_ptr<UIImage> springBoardImage;

}  // namespace vistrel
