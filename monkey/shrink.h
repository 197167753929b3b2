#pragma once

#include <string>

#include "monkey/life.h"

namespace monkey {

/// Leaves out whatever is not needed for a life to fail with `failure`, as far as a few hundred trials go.
/// Its last event is the one that fails.
Life shrink(Life life, const std::string& failure);

}  // namespace monkey
