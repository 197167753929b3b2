#pragma once

namespace vistrel {

/// What loading the library does: the default colours, and the hooks. Everything else follows when SpringBoard calls.
void start();

}  // namespace vistrel
