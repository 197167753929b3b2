#include <stdexcept>

/// A library that cannot be loaded.
__attribute__((constructor)) static void fail() { throw std::runtime_error("not\ntoday"); }
