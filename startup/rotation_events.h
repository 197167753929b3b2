#pragma once

namespace vistrel {

/// Has the switcher follow the device and the interface in front: turning the device into landscape hides the
/// window, and a completed interface rotation turns the window and both strips. Call once, when the window
/// exists.
void observeRotations();

}  // namespace vistrel
