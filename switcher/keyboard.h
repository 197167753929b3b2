#pragma once

namespace vistrel {

/// Whether the on-screen keyboard is up: while it is, the switcher neither opens nor reacts.
bool keyboardIsOnScreen();

}  // namespace vistrel
