#include "effects/stack_blur.h"
#include "startup/hook_table.h"

/// Runs when the injection framework loads the library. The settings stand at their defaults; preferences are
/// read later, when SpringBoard is ready for the switcher.
__attribute__((constructor)) static void loadVistrel() {
  vistrel::registerStackBlur();
  vistrel::installHooks();
}
