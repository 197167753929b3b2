#include "startup/start.h"

/// Runs when the injection framework loads the library.
__attribute__((constructor)) static void vistrelConstructor() { vistrel::start(); }
