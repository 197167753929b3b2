#pragma once

namespace vistrel {

/// Replaces the nineteen methods through which SpringBoard keeps the switcher informed, in a fixed order.
/// Each replacement calls the previous implementation with the same receiver and arguments and returns its
/// result.
void installHooks();

}  // namespace vistrel
