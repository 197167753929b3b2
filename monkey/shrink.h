#pragma once

#include <optional>
#include <string>

#include "monkey/event_sequence.h"

namespace monkey {

/// Leaves out whatever is not needed for a sequence to fail with `failure`, as far as some hundred runs or
/// some minutes go. Its last event is then the one that fails. Nothing when it does not fail a second time.
std::optional<EventSequence> shrink(EventSequence sequence, const std::string& failure);

}  // namespace monkey
